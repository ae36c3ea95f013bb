// How the live plots sit: what they show above, the graphs under it, one under the other over one axis.
#include "desktop/layouts_live.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QSplitter>
#include <algorithm>

#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/strips.h"
#include "platform/settings.h"
#include "screens/live_choice.h"

namespace verlink::desktop {

namespace {

constexpr char kWidth[] = "live.width";
constexpr int kUsual = 380, kLeast = 260, kMost = 4000, kLeastStrip = 68;

/// Gives the pane the width that it had last whenever it comes up, and keeps the one that the hand gives it.
class WidthKeeper : public QObject {
   public:
    WidthKeeper(QSplitter* split, QWidget* pane) : QObject(pane), split_(split), pane_(pane) {
        pane->installEventFilter(this);
        connect(split, &QSplitter::splitterMoved, this,
                [this] { platform::The_Settings().Put(kWidth, std::to_string(pane_->width())); });
    }

   protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == pane_ && event->type() == QEvent::ShowToParent) giveWidth();
        return QObject::eventFilter(object, event);
    }

   private:
    void giveWidth() {
        const long kept = platform::The_Settings().Number(kWidth).value_or(kUsual);
        const int width = static_cast<int>(std::clamp<long>(kept, kLeast, kMost));
        QList<int> sizes = split_->sizes();
        const int place = split_->indexOf(pane_);
        int all = 0;
        for (const int size : sizes) all += size;
        sizes[place] = width;
        sizes[0] = std::max(1, all - width);
        split_->setSizes(sizes);
    }

    QSplitter* split_;
    QWidget* pane_;
};

/// A list that goes with the width of the pane, however long its entries are.
QWidget* elastic(QWidget* list) {
    auto* combo = qobject_cast<QComboBox*>(list);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(5);
    combo->setSizePolicy(QSizePolicy::Expanding, combo->sizePolicy().verticalPolicy());
    return list;
}

/// Presets are told apart by the middle of their words: the open list is as wide as the longest of them.
void showWholePresets(QWidget* list) {
    auto* combo = qobject_cast<QComboBox*>(list);
    int widest = 0;
    for (const Preset* preset : Live_Presets())
        widest = std::max(widest, combo->fontMetrics().horizontalAdvance(QString::fromUtf8(preset->text)));
    constexpr int kScrollBar = 40;
    combo->view()->setMinimumWidth(widest + kScrollBar);
}

QLayout* choices(Form& form) {
    auto* grid = new QGridLayout;
    grid->setSpacing(4);
    grid->setColumnStretch(0, 5);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(2, 3);
    for (int slot = 1; slot <= 4; ++slot) {
        int column = 0;
        for (const char* box : {"cmb_LiveVar", "cmb_LiveCom", "cmb_LiveFrame"}) {
            const std::string name = std::string(box).append(std::to_string(slot));
            grid->addWidget(elastic(form.widget(name.c_str())), slot, column++);
        }
    }
    return grid;
}

}  // namespace

void addLivePane(Form& form, QSplitter* split) {
    QVBoxLayout* all = column();
    all->addStrut(kLeast - 2 * kInset);
    QHBoxLayout* preset = row();
    preset->addWidget(labelOf(form.widget("lbl_LivePreset"), form.widget("cmb_LivePreset")));
    preset->addWidget(elastic(form.widget("cmb_LivePreset")), 1);
    showWholePresets(form.widget("cmb_LivePreset"));
    all->addLayout(preset);
    all->addLayout(choices(form));
    form.frame("fra_LiveScale")
        ->setContent(columnOf({form.widget("opt_LiveScale", 0), form.widget("opt_LiveScale", 1)}, 2));
    form.frame("fra_LiveX")->setContent(columnOf({form.widget("opt_LiveX", 0), form.widget("opt_LiveX", 1)}, 2));
    all->addLayout(rowOf({form.widget("fra_LiveScale"), form.widget("fra_LiveX")}));
    all->addWidget(collapse(note(form.widget("lbl_LiveNote"), true)));
    auto* graphs = new Strips(kLeastStrip);
    for (const int graph : {0, 1, 2, 3, 4}) graphs->addWidget(collapse(form.widget("grf_Live", graph)));
    // Where no graph is shown, its place stays empty and the boxes stay at the top.
    FrameBox* pane = form.frame("fra_Live");
    QWidget* place = around(pane, graphs);
    place->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    all->addWidget(place, 1);
    pane->setContent(all);
    collapse(pane);
    new WidthKeeper(split, pane);  // the pane's
    split->addWidget(pane);
    split->setCollapsible(split->indexOf(pane), false);
    split->setStretchFactor(split->indexOf(pane), 0);
}

}  // namespace verlink::desktop
