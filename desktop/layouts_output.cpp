// How the common parts of plots and tables sit.
#include "desktop/layouts_output.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>

#include "desktop/caption.h"
#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"

namespace verlink::desktop {

namespace {

constexpr int kNameWidth = 120, kValueLetters = 9;

/// A row of name, read-out and unit.
void addRow(QGridLayout* grid, QWidget* name, QWidget* value, QWidget* unit) {
    const int line = grid->rowCount();
    if (name) {
        auto* text = static_cast<QLabel*>(name);
        text->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        text->setWordWrap(true);
        text->setFixedWidth(kNameWidth);
        grid->addWidget(text, line, 0);
    }
    static_cast<Caption*>(readOut(value, kValueLetters))->setBoxWhenEmpty(false);
    grid->addWidget(value, line, 1, Qt::AlignVCenter);
    if (unit) grid->addWidget(unit, line, 2, Qt::AlignLeft | Qt::AlignVCenter);
}

QGridLayout* readOuts() {
    auto* grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(4);
    grid->setColumnMinimumWidth(2, 38);
    return grid;
}

QLayout* summary(Form& form) {
    QGridLayout* links = readOuts();
    for (int i = 0; i <= 5; ++i)
        addRow(links, form.widget("lbl_LinkName", i), form.widget("lbl_Links", i),
               i == 5 ? form.widget("lbl_Degrees", 5) : form.widget("lbl_Units", i));
    form.frame("fra_Links")->setContent(links);
    QGridLayout* run = readOuts();
    for (int i = 0; i <= 6; ++i)
        addRow(run, form.widget("lbl_Initial", i), form.widget("lbl_Linkout2", i),
               i == 0 ? nullptr : form.widget("lbl_Unit", i));
    form.frame("fra_Initial")->setContent(run);
    return columnOf({form.widget("fra_Links"), form.widget("fra_Initial")}, 12);
}

}  // namespace

QLayout* headerStrip(Form& form) {
    QHBoxLayout* all = row(kGroupGap);
    QVBoxLayout* titles = column(2);
    for (const char* name : {"lbl_Header2", "lbl_Header3"}) {
        if (!form.has(name)) continue;
        auto* line = form.get<QLabel>(name);
        line->setAlignment(Qt::AlignCenter);
        titles->addWidget(titles->count() == 0 ? title(line) : line);
    }
    all->addLayout(titles, 1);
    if (form.has("fra_coord")) {
        form.frame("fra_coord")->setContentBeside(rowOf({form.widget("lbl_Coord")}));
        all->addWidget(form.widget("fra_coord"), 0, Qt::AlignVCenter);
    }
    return all;
}

QWidget* foldingSummary(Form& form) {
    QVBoxLayout* inside = column(12);
    inside->addLayout(summary(form));
    inside->addStretch(1);
    inside->addWidget(note(form.widget("lbl_Header")));

    auto* all = new QWidget(form.centralWidget());
    QWidget* panel = around(all, inside);
    auto* scroll = new QScrollArea(all);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidgetResizable(true);
    scroll->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    scroll->setFixedWidth(panel->sizeHint().width() + scroll->verticalScrollBar()->sizeHint().width() + 2);
    scroll->setWidget(panel);
    auto* handle = new QToolButton(all);
    handle->setAutoRaise(true);
    handle->setArrowType(Qt::RightArrow);
    handle->setFocusPolicy(Qt::NoFocus);
    handle->setFixedWidth(16);
    handle->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    QObject::connect(handle, &QToolButton::clicked, scroll, [scroll, handle] {
        scroll->setVisible(scroll->isHidden());
        handle->setArrowType(scroll->isHidden() ? Qt::LeftArrow : Qt::RightArrow);
    });
    auto* both = new QHBoxLayout(all);
    both->setContentsMargins(0, 0, 0, 0);
    both->setSpacing(4);
    both->addWidget(handle);
    both->addWidget(scroll);
    return all;
}

void addWays(Form& form, QHBoxLayout* foot, const char* print, const char* back, const char* next, const char* copy) {
    foot->addStretch(1);
    QWidget* buttons[] = {form.widget(print), form.widget(copy), form.widget(back), forward(form.widget(next))};
    equalWidths({buttons[0], buttons[1], buttons[2], buttons[3]});
    for (QWidget* button : buttons) foot->addWidget(button, 0, Qt::AlignVCenter);
}

QWidget* strip(Form& form, const char* frame, QLayout* content) {
    form.frame(frame)->setContentBeside(content);
    return form.widget(frame);
}

}  // namespace verlink::desktop
