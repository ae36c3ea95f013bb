// Every screen of the program has its window: a widget for each control, and no widget without one.
#include "tests/desktop/screens.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <map>
#include <set>

#include "core/model_on_screens.h"
#include "desktop/text.h"
#include "platform/controls.h"

namespace verlink::test {

using namespace platform;

namespace {

TEST_F(ScreensTest, Every_window_has_the_banner_in_its_title) {
    Model.TitleSuffix = "The banner   ";
    Set_Screen_Titles();
    ForEach([](Screen& screen, desktop::Form& form) {
        EXPECT_TRUE(screen.Caption().Get().ends_with(Model.TitleSuffix)) << screen.Caption().Get();
        form.applyShape();
        EXPECT_TRUE(form.windowTitle().endsWith(QStringLiteral("The banner"))) << form.windowTitle().toStdString();
    });
}

TEST_F(ScreensTest, Every_control_has_its_widget_and_every_layout_places_it) {
    ForEach([](Screen& screen, desktop::Form& form) {
        for (const Control* control : screen.Controls()) {
            if (dynamic_cast<const CommonDialog*>(control)) continue;
            const QObject* object = form.objectOf(*control);
            ASSERT_NE(object, nullptr) << control->ObjectName();
            if (!dynamic_cast<const MenuEntry*>(control) ||
                static_cast<const MenuEntry*>(control)->Children().empty()) {
                EXPECT_EQ(object->objectName().toStdString(), control->ObjectName());
            }
        }
        EXPECT_TRUE(form.unplaced().empty()) << "not placed: " << form.unplaced().front();
    });
}

TEST_F(ScreensTest, Every_named_widget_is_a_control_s) {
    ForEach([](Screen& screen, desktop::Form& form) {
        std::set<std::string> names{"room"};
        for (const Control* control : screen.Controls()) names.insert(control->ObjectName());
        for (const QWidget* widget : form.findChildren<QWidget*>()) {
            const QString name = widget->objectName();
            if (name.isEmpty() || name.startsWith(QStringLiteral("qt_"))) continue;
            // What folds a column away belongs to the window alone.
            if (name.startsWith(QStringLiteral("fold_"))) continue;
            EXPECT_TRUE(names.contains(name.toStdString())) << name.toStdString();
        }
    });
}

TEST_F(ScreensTest, Every_text_that_is_shown_is_a_control_s) {
    ForEach([](Screen& screen, desktop::Form& form) {
        std::set<QString> texts{QString()};
        for (const Control* control : screen.Controls()) {
            if (const auto* label = dynamic_cast<const Label*>(control)) texts.insert(desktop::lines(label->Caption));
            if (const auto* frame = dynamic_cast<const Frame*>(control)) texts.insert(desktop::lines(frame->Caption));
        }
        for (const QLabel* label : form.findChildren<QLabel*>())
            EXPECT_TRUE(texts.contains(label->text())) << label->text().toStdString();
    });
}

TEST_F(ScreensTest, Windows_fit_a_display_of_1366_by_768) {
    ForEach([](Screen&, desktop::Form& form) {
        const QSize least = Find<QWidget>(form, "room").minimumSizeHint();
        EXPECT_LE(least.width(), 1366);
        EXPECT_LE(least.height(), 768 - 56 - form.menuBar()->sizeHint().height());
    });
}

TEST_F(ScreensTest, Every_control_that_takes_input_has_a_tip) {
    Set_Menus();  // tells each button of the home screen why it is off
    ForEach([](Screen& screen, desktop::Form&) {
        for (const Control* control : screen.Controls()) {
            const auto* visual = dynamic_cast<const Visual*>(control);
            if (!visual || dynamic_cast<const Label*>(visual) || dynamic_cast<const Frame*>(visual)) continue;
            EXPECT_FALSE(visual->Tip.Get().empty()) << visual->ObjectName();
            EXPECT_EQ(visual->Tip.Get().find('\n'), std::string::npos) << visual->ObjectName();
        }
    });
}

/// The letter behind a single ampersand, in lower case; 0 for none.
char MnemonicOf(const std::string& caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != '&') continue;
        if (caption[i + 1] != '&') return static_cast<char>(std::tolower(static_cast<unsigned char>(caption[i + 1])));
        ++i;
    }
    return 0;
}

TEST_F(ScreensTest, Mnemonics_are_unique_but_for_the_pairs_that_their_captions_give) {
    // Run and Recalc are never enabled together; the other pairs take turns.
    const std::set<std::string> shared{"r cmd_Animate cmd_Recalc", "t opt_Calctype_2 cmd_Reset",
                                       "a opt_Calctype_3 cmd_Animate", "c cmd_Clear1 cmd_Calc", "c cmd_Calc cmd_copy"};
    ForEach([&shared](Screen& screen, desktop::Form&) {
        std::map<char, std::string> taken;
        const auto take = [&](const std::string& name, const std::string& caption) {
            const char letter = MnemonicOf(caption);
            if (!letter || taken.emplace(letter, name).second) return;
            // Each slot has its button of the same words, and so have the presets.
            if (caption == "&Clear") return;
            const std::string pair = std::string(1, letter) + ' ' + taken[letter] + ' ' + name;
            EXPECT_TRUE(shared.contains(pair)) << pair;
        };
        for (const Control* control : screen.Controls()) {
            if (const auto* button = dynamic_cast<const CommandButton*>(control)) take(button->Name(), button->Caption);
            if (const auto* option = dynamic_cast<const OptionButton*>(control))
                take(option->ObjectName(), option->Caption);
            if (const auto* tick = dynamic_cast<const CheckBox*>(control)) take(tick->Name(), tick->Caption);
        }
    });
}

TEST_F(ScreensTest, Tab_reaches_every_box_and_button_once_around) {
    ForEach([](Screen& screen, desktop::Form& form) {
        for (Control* control : screen.Controls())
            if (auto* visual = dynamic_cast<Visual*>(control)) {
                visual->Enabled = true;
                visual->Visible = true;
            }
        std::set<const QWidget*> reached;
        const QWidget* widget = &form;
        do {
            if (widget->focusPolicy() & Qt::TabFocus) reached.insert(widget);
            widget = widget->nextInFocusChain();
        } while (widget != &form && reached.size() < 500);
        for (Control* control : screen.Controls()) {
            const bool typed = dynamic_cast<TextBox*>(control) || dynamic_cast<CommandButton*>(control) ||
                               dynamic_cast<CheckBox*>(control) || dynamic_cast<ComboBox*>(control);
            if (typed) {
                EXPECT_TRUE(reached.contains(static_cast<const QWidget*>(form.objectOf(*control))))
                    << control->ObjectName();
            }
        }
    });
}

/// The controls in the order in which the tab key comes to them, one per group of options.
std::vector<std::string> TabOrder(desktop::Form& form, const char* first) {
    std::vector<std::string> names;
    auto* start = form.findChild<QWidget*>(QString::fromLatin1(first));
    QWidget* widget = start;
    do {
        if ((widget->focusPolicy() & Qt::TabFocus) && !widget->objectName().isEmpty() &&
            !widget->objectName().startsWith(QLatin1String("qt_")))
            names.push_back(widget->objectName().toStdString());
        widget = widget->nextInFocusChain();
    } while (widget != start && names.size() < 500);
    return names;
}

TEST_F(ScreensTest, Tab_goes_down_the_columns_of_the_input_screen_and_to_the_choices_in_force) {
    const std::vector<std::string> expected{
        "txt_Linkout_1",  "txt_Linkout_2",  "txt_Linkout_3",  "txt_Linkout_4",    "txt_Linkout_5", "opt_Polar_0",
        "txt_Linkout_15", "txt_Linkout_16", "txt_Linkout_0",  "txt_Linkout_6",    "chk_Lock_1",    "chk_Lock_2",
        "chk_Lock_3",     "chk_Lock_4",     "chk_Lock_5",     "chk_Lock_15",      "chk_Lock_16",   "chk_Lock_0",
        "chk_Lock_6",     "txt_Thetazero",  "txt_initial_0",  "txt_initial_1",    "txt_initial_2", "txt_initial_3",
        "txt_initial_4",  "fold_Linkage",   "opt_Calctype_3", "opt_OpenCross_0",  "opt_Modulo_1",  "chk_autocalc",
        "cmd_Calc",       "fold_Drive",     "txt_Figure",     "Picture1",         "hsc_step",      "cmd_Step",
        "cmd_Reset",      "cmd_Animate",    "chk_autoscale",  "opt_Shift_Drag_0", "cmd_PlotPrint", "cmd_Cancel",
        "cmd_Done"};
    EXPECT_EQ(TabOrder(qt.formOf(Screens::Get("frm_Inputnew")), "txt_Linkout_1"), expected);
}

TEST_F(ScreensTest, Tab_goes_along_the_rows_of_masses_and_loads_and_then_to_the_solution) {
    std::vector<std::string> expected;
    for (const char* row : {"txt_Mass", "txt_Inertia", "txt_DistCG", "txt_AngCG", "txt_MagForce", "txt_AngForce",
                            "txt_DistP", "txt_AngP", "txt_Torque", "txt_Frict"}) {
        for (const char* link : {"_2", "_3", "_4"}) expected.push_back(std::string(row) + link);
        if (row == std::string("txt_Torque")) expected.emplace_back("chk_Torque");
    }
    for (const char* button : {"cmd_Solve", "cmd_Matrix", "cmd_Print", "cmd_Copy", "cmd_Cancel", "cmd_Done"})
        expected.emplace_back(button);
    EXPECT_EQ(TabOrder(qt.formOf(Screens::Get("frm_MassProp")), "txt_Mass_2"), expected);
}

TEST_F(ScreensTest, Tab_goes_down_the_counterweights_and_then_to_the_calculation) {
    const std::vector<std::string> expected{"txt_BerkMass_2", "txt_Radius_2",    "txt_MRproduct_2", "txt_BerkMass_4",
                                            "txt_Radius_4",   "txt_MRproduct_4", "txt_Fluct",       "cmd_Calc",
                                            "opt_Back_0",     "cmd_Print",       "cmd_copy",        "cmd_back",
                                            "cmd_Done"};
    EXPECT_EQ(TabOrder(qt.formOf(Screens::Get("frm_Balance")), "txt_BerkMass_2"), expected);
}

TEST_F(ScreensTest, Tab_goes_down_the_column_of_the_animate_screen_and_then_along_its_buttons) {
    const std::vector<std::string> expected{
        "txt_Figure",     "Picture1",       "hsc_step",      "opt_Shift_Drag_0", "cmb_LivePreset", "cmb_LiveVar1",
        "cmb_LiveCom1",   "cmb_LiveFrame1", "cmb_LiveVar2",  "cmb_LiveCom2",     "cmb_LiveFrame2", "cmb_LiveVar3",
        "cmb_LiveCom3",   "cmb_LiveFrame3", "cmb_LiveVar4",  "cmb_LiveCom4",     "cmb_LiveFrame4", "opt_LiveScale_0",
        "opt_LiveX_0",    "hsc_speed",      "cmb_wait",      "txt_Cycles",       "chk_autoscale",  "chk_Trace",
        "chk_Showlinks",  "chk_Coupler",    "chk_Centrodes", "chk_CouplerLines", "txt_LineAngle",  "opt_OpenCross_0",
        "txt_Linkout_1",  "txt_Linkout_2",  "txt_Linkout_3", "txt_Linkout_4",    "txt_Linkout_5",  "opt_Polar_0",
        "txt_Linkout_15", "txt_Linkout_16", "txt_Linkout_0", "txt_Linkout_6",    "chk_Lock_1",     "chk_Lock_2",
        "chk_Lock_3",     "chk_Lock_4",     "chk_Lock_5",    "chk_Lock_15",      "chk_Lock_16",    "chk_Lock_0",
        "chk_Lock_6",     "txt_initial_0",  "txt_initial_1", "txt_initial_2",    "fold_Play",      "fold_Data",
        "cmd_Animate",    "cmd_Step",       "cmd_Reset",     "cmd_Recalc",       "cmd_PlotPrint",  "cmd_Back",
        "cmd_Done"};
    Screen& animate = Screens::Get("frm_Animate");
    animate.Get<OptionButton>("opt_OpenCross", 0).Value = true;
    EXPECT_EQ(TabOrder(qt.formOf(animate), "txt_Figure"), expected);
}

}  // namespace

}  // namespace verlink::test
