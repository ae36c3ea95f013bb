// The entries, and where the menu comes up.
#include "desktop/picture_menu.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <utility>

#include "core/linkage_model.h"
#include "desktop/chart_widgets.h"
#include "desktop/form.h"
#include "desktop/text.h"
#include "files/picture_files.h"
#include "platform/graph.h"
#include "platform/guard.h"
#include "platform/plot_box.h"

namespace verlink::desktop {

namespace {

/// Is the user's hand on the window?
bool inUse(const QWidget& widget) {
    const auto* form = dynamic_cast<const Form*>(widget.window());
    return !form || form->inUse();
}

}  // namespace

/// Hears the menu key on a window, wherever the focus is that has no menu of its own.
class PictureMenu::ByKey : public QObject {
   public:
    explicit ByKey(QWidget* window) : QObject(window) {
        setObjectName(QStringLiteral("pictures_by_key"));
        window->installEventFilter(this);
    }

   protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() != QEvent::ContextMenu ||
            static_cast<QContextMenuEvent*>(event)->reason() != QContextMenuEvent::Keyboard)
            return QObject::eventFilter(object, event);
        auto* window = static_cast<QWidget*>(object);
        QList<PictureMenu*> seen;
        for (QWidget* widget : window->findChildren<QWidget*>())
            for (QObject* child : widget->children())
                if (auto* menu = dynamic_cast<PictureMenu*>(child); menu && widget->isVisible()) seen << menu;
        if (seen.isEmpty() || !inUse(*window)) return QObject::eventFilter(object, event);
        event->accept();
        if (seen.size() == 1) {
            const QWidget& only = seen.constFirst()->widget_;
            seen.constFirst()->offer(only.mapToGlobal(only.rect().center()));
            return true;
        }
        QMenu all(window);
        all.setObjectName(QStringLiteral("qt_picture_menu"));
        for (PictureMenu* menu : seen)
            menu->fill(*all.addMenu(QStringLiteral("&%1  %2").arg(all.actions().size() + 1).arg(menu->title())));
        all.exec(window->mapToGlobal(window->rect().center()));
        return true;
    }
};

PictureMenu::PictureMenu(const platform::Visual& control, QWidget& widget, std::string what,
                         std::function<PictureSource()> source)
    : QObject(&widget), control_(control), widget_(widget), what_(std::move(what)), maker_(control, std::move(source)) {
    widget.installEventFilter(this);
}

bool PictureMenu::eventFilter(QObject* object, QEvent* event) {
    // The window is known once the widget has its place.
    if (event->type() == QEvent::Show) {
        QWidget* window = widget_.window();
        if (!window->findChild<QObject*>(QStringLiteral("pictures_by_key"), Qt::FindDirectChildrenOnly))
            new ByKey(window);
    }
    if (event->type() != QEvent::ContextMenu) return QObject::eventFilter(object, event);
    event->accept();
    if (inUse(widget_)) offer(static_cast<QContextMenuEvent*>(event)->globalPos());
    return true;
}

QString PictureMenu::title() const {
    QString title = QStringLiteral("Picture");
    if (const auto* graph = dynamic_cast<const platform::Graph*>(&control_)) {
        title = toQt(graph->GraphTitle.empty() ? "Graph" : graph->GraphTitle);
    } else if (const auto* plot = dynamic_cast<const platform::PlotBox*>(&control_)) {
        const auto& values = plot->Reading().values;
        title = values.empty() ? QStringLiteral("Plot") : toQt(values[0].name);
    }
    if (dynamic_cast<const ChartWidget*>(&widget_)) title = widget_.accessibleName();
    return title.simplified().replace(u'&', QStringLiteral("&&"));
}

void PictureMenu::offer(const QPoint& at) {
    QMenu menu(&widget_);
    menu.setObjectName(QStringLiteral("qt_picture_menu"));
    fill(menu);
    menu.exec(at);
}

/// What is chosen is done when the menu has gone: a film is made while events are served.
void PictureMenu::fill(QMenu& menu) {
    const auto add = [&](const QString& text, std::function<void()> deed) {
        QAction* action = menu.addAction(text);
        connect(action, &QAction::triggered, this, std::move(deed), Qt::QueuedConnection);
        return action;
    };
    add(QStringLiteral("Save Picture..."),
        [this] { Guarded("Save_Picture", [this] { Save_Picture(maker_, Model.ModelName, what_); }); });
    add(QStringLiteral("Copy Picture"), [this] { Guarded("Copy_Picture", [this] { maker_.Copy(); }); });
    if (auto* motion = widget_.window()->findChild<QAction*>(QStringLiteral("mnu_SaveMotion")))
        add(motion->text(), [motion] { motion->trigger(); })->setEnabled(motion->isEnabled());
    // A graph has no mechanism.
    if (dynamic_cast<const ChartWidget*>(&widget_)) return;
    if (dynamic_cast<const platform::Graph*>(&control_) || dynamic_cast<const platform::PlotBox*>(&control_)) return;
    if (auto* drawing = widget_.window()->findChild<QAction*>(QStringLiteral("mnu_SaveDrawing")))
        add(drawing->text(), [drawing] { drawing->trigger(); })->setEnabled(drawing->isEnabled());
}

}  // namespace verlink::desktop
