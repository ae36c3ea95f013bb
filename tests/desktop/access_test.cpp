// The program without a mouse and without looking: every control has a name of its own, and the keys lead to it.
#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <map>
#include <set>

#include "core/model_on_screens.h"
#include "desktop/text.h"
#include "platform/controls.h"
#include "platform/graph.h"
#include "platform/grid.h"
#include "tests/desktop/screens.h"

namespace verlink::test {

using namespace platform;

namespace {

using AccessTest = ScreensTest;

bool Takes_Input(const Control* control) {
    return dynamic_cast<const TextBox*>(control) || dynamic_cast<const CommandButton*>(control) ||
           dynamic_cast<const OptionButton*>(control) || dynamic_cast<const CheckBox*>(control) ||
           dynamic_cast<const ComboBox*>(control) || dynamic_cast<const ScrollBar*>(control);
}

QString Told(QWidget* widget, QAccessible::Text kind) {
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
    return told ? told->text(kind) : QString();
}

/// Of a list the toolkit tells what stands in it, behind the label at its side.
QString Name_Of(QWidget* widget) {
    const QString name = Told(widget, QAccessible::Name);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
    if (!told || told->role() != QAccessible::ComboBox) return name;
    const auto labels = told->relations(QAccessible::Label);
    return labels.empty() ? name : labels.front().first->text(QAccessible::Name) + QStringLiteral(": ") + name;
}

TEST_F(AccessTest, Whoever_does_not_see_the_screen_is_told_a_name_of_its_own_for_every_control) {
    ForEach([](Screen& screen, desktop::Form& form) {
        std::map<QString, std::string> taken;
        for (Control* control : screen.Controls()) {
            auto* widget = qobject_cast<QWidget*>(form.objectOf(*control));
            if (!widget || dynamic_cast<Label*>(control) || dynamic_cast<Frame*>(control)) continue;
            const QString name = Name_Of(widget);
            EXPECT_FALSE(name.trimmed().isEmpty()) << control->ObjectName();
            const auto [other, fresh] = taken.emplace(name, control->ObjectName());
            EXPECT_TRUE(fresh) << "\"" << name.toStdString() << "\" is " << other->second << " and "
                               << control->ObjectName();
        }
    });
}

TEST_F(AccessTest, Whoever_does_not_see_the_screen_is_told_what_every_control_means) {
    Set_Menus();  // tells each button of the home screen why it is off
    ForEach([](Screen& screen, desktop::Form& form) {
        for (Control* control : screen.Controls()) {
            if (!Takes_Input(control)) continue;
            auto* widget = qobject_cast<QWidget*>(form.objectOf(*control));
            const std::string tip = static_cast<const Visual*>(control)->Tip;
            EXPECT_FALSE(tip.empty()) << control->ObjectName();
            EXPECT_EQ(Told(widget, QAccessible::Description).toStdString(), tip) << control->ObjectName();
        }
    });
}

/// Opens the window and gives it the focus.
void Open(desktop::Form& form) {
    form.show();
    form.activateWindow();
    QCoreApplication::processEvents();
}

/// Presses the tab key until the focus is back where it was; every widget that had it.
std::set<const QWidget*> Round(desktop::Form& form) {
    std::set<const QWidget*> reached;
    for (int presses = 0; presses < 300; ++presses) {
        QWidget* at = form.focusWidget();
        if (at && !reached.insert(at).second) break;
        QTest::keyClick(at ? at : &form, Qt::Key_Tab);
    }
    return reached;
}

/// The others of a group are a step of the arrow keys away from the choice in force.
bool Chosen_By_Arrows(QWidget* widget, const std::set<const QWidget*>& reached) {
    auto* option = qobject_cast<QRadioButton*>(widget);
    if (!option || !option->group()) return false;
    const auto group = option->group()->buttons();
    return std::any_of(group.begin(), group.end(), [&](const QWidget* other) { return reached.contains(other); });
}

TEST_F(AccessTest, The_tab_key_comes_to_whatever_takes_input_on_a_screen) {
    int found = 0;
    ForEach([&found](Screen& screen, desktop::Form& form) {
        Open(form);
        const std::set<const QWidget*> reached = Round(form);
        for (Control* control : screen.Controls()) {
            if (!Takes_Input(control)) continue;
            auto* widget = static_cast<QWidget*>(form.objectOf(*control));
            if (!widget->isEnabled() || !widget->isVisible()) continue;
            EXPECT_TRUE(reached.contains(widget) || Chosen_By_Arrows(widget, reached)) << control->ObjectName();
            ++found;
        }
        form.hide();
    });
    EXPECT_GT(found, 150);
}

TEST_F(AccessTest, The_tab_key_comes_to_whatever_takes_input_once_all_of_it_is_allowed) {
    ForEach([](Screen& screen, desktop::Form& form) {
        // The reader of the manual allows what it has a document for, and there is none here.
        if (screen.Name() == "frm_Help") return;
        Open(form);
        for (Control* control : screen.Controls())
            if (auto* visual = dynamic_cast<Visual*>(control)) {
                visual->Enabled = true;
                visual->Visible = true;
            }
        const std::set<const QWidget*> reached = Round(form);
        for (Control* control : screen.Controls()) {
            if (!Takes_Input(control)) continue;
            auto* widget = static_cast<QWidget*>(form.objectOf(*control));
            EXPECT_TRUE(reached.contains(widget) || Chosen_By_Arrows(widget, reached)) << control->ObjectName();
        }
        form.hide();
    });
}

TEST_F(AccessTest, The_arrow_keys_choose_among_options) {
    Screen& input = Screens::Get("frm_Inputnew");
    desktop::Form& form = qt.formOf(input);
    Open(form);
    auto& first = Find<QRadioButton>(form, "opt_Calctype_3");
    first.setFocus();
    ASSERT_TRUE(first.isChecked());
    QTest::keyClick(&first, Qt::Key_Up);
    EXPECT_FALSE(input.Get<OptionButton>("opt_Calctype", 3).Value);
    EXPECT_TRUE(input.Get<OptionButton>("opt_Calctype", 2).Value);
}

TEST_F(AccessTest, A_screen_of_words_alone_goes_by_the_escape_key) {
    Then("frm_About", [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    Screens::Get("frm_About").ShowModal();
    EXPECT_FALSE(Screens::Get("frm_About").Visible());
}

TEST_F(AccessTest, A_screen_of_words_alone_goes_by_the_return_key) {
    Then("frm_About", [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); });
    Screens::Get("frm_About").ShowModal();
    EXPECT_FALSE(Screens::Get("frm_About").Visible());
}

/// Every entry below a menu that does something.
void Entries_Below(const QMenu* menu, std::set<const QObject*>& entries) {
    for (QAction* action : menu->actions()) {
        if (action->menu())
            Entries_Below(action->menu(), entries);
        else if (!action->isSeparator())
            entries.insert(action);
    }
}

TEST_F(AccessTest, The_menus_open_by_the_alt_key_and_the_arrow_keys_and_hold_every_entry) {
    int bars = 0;
    ForEach([&bars](Screen& screen, desktop::Form& form) {
        if (form.menuBar()->actions().isEmpty()) return;
        ++bars;
        Open(form);
        QWidget* at = form.focusWidget() ? form.focusWidget() : &form;
        QTest::keyPress(at, Qt::Key_Alt, Qt::AltModifier);
        QTest::keyRelease(at, Qt::Key_Alt);
        EXPECT_NE(form.menuBar()->activeAction(), nullptr);
        std::set<const QObject*> found;
        for (QAction* top : form.menuBar()->actions()) {
            EXPECT_EQ(form.menuBar()->activeAction(), top);
            if (top->menu())
                Entries_Below(top->menu(), found);
            else
                found.insert(top);
            QTest::keyClick(form.menuBar(), Qt::Key_Right);
        }
        QTest::keyClick(form.menuBar(), Qt::Key_Escape);
        for (const Control* control : screen.Controls()) {
            const auto* entry = dynamic_cast<const MenuEntry*>(control);
            if (!entry || !entry->Children().empty() || entry->Caption.Get().empty()) continue;
            EXPECT_TRUE(found.contains(form.objectOf(*control))) << control->ObjectName();
        }
        form.hide();
    });
    EXPECT_GT(bars, 10);
}

}  // namespace

}  // namespace verlink::test
