// How the pieces of layouts look and align.
#include "desktop/grid.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <algorithm>

#include "desktop/caption.h"

namespace verlink::desktop {

QVBoxLayout* column(int spacing) {
    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    return layout;
}

QHBoxLayout* row(int spacing) {
    auto* layout = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    return layout;
}

QHBoxLayout* rowOf(std::initializer_list<QWidget*> widgets, int spacing) {
    QHBoxLayout* layout = row(spacing);
    for (QWidget* widget : widgets) layout->addWidget(widget);
    return layout;
}

QVBoxLayout* columnOf(std::initializer_list<QWidget*> widgets, int spacing) {
    QVBoxLayout* layout = column(spacing);
    for (QWidget* widget : widgets) layout->addWidget(widget);
    return layout;
}

QVBoxLayout* page(QWidget* room) {
    auto* layout = new QVBoxLayout(room);
    layout->setContentsMargins(kInset, kInset, kInset, kInset);
    layout->setSpacing(kGap);
    return layout;
}

namespace {

QLineEdit* lineOf(QWidget* box) {
    if (auto* combo = qobject_cast<QComboBox*>(box)) return combo->lineEdit();
    return qobject_cast<QLineEdit*>(box);
}

int widthOf(const QWidget* widget, int letters, QChar letter) {
    return widget->fontMetrics().horizontalAdvance(QString(letters, letter));
}

}  // namespace

QWidget* numberBox(QWidget* box, int digits) {
    const bool combo = qobject_cast<QComboBox*>(box) != nullptr;
    if (QLineEdit* line = lineOf(box)) line->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    box->setFixedWidth(widthOf(box, digits, u'0') + (combo ? 40 : 14));
    return box;
}

QWidget* textBox(QWidget* box, int letters) {
    if (QLineEdit* line = lineOf(box)) line->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    box->setMinimumWidth(widthOf(box, letters, u'n') + 14);
    return box;
}

QWidget* labelOf(QWidget* label, QWidget* box) {
    if (auto* text = qobject_cast<QLabel*>(label)) {
        text->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        text->setBuddy(box);
    }
    return label;
}

QWidget* title(QWidget* label) {
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

QWidget* note(QWidget* label, bool wrapped) {
    if (auto* text = dynamic_cast<Caption*>(label)) {
        text->setQuiet();
        text->setWordWrap(wrapped);
    }
    return label;
}

QWidget* readOut(QWidget* label, int letters) {
    if (auto* text = dynamic_cast<Caption*>(label)) {
        text->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        text->setLook(Caption::Look::kReadOut);
    }
    label->setFixedWidth(widthOf(label, letters, u'0') + 16);
    return label;
}

QWidget* forward(QWidget* button) {
    QFont bold = button->font();
    bold.setBold(true);
    button->setFont(bold);
    return button;
}

void equalWidths(std::initializer_list<QWidget*> widgets) {
    int widest = 0;
    for (const QWidget* widget : widgets) widest = std::max(widest, widget->sizeHint().width());
    for (QWidget* widget : widgets) widget->setMinimumWidth(widest);
}

QWidget* collapse(QWidget* widget) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(false);
    widget->setSizePolicy(policy);
    return widget;
}

QWidget* inOnePlace(QWidget* parent, std::initializer_list<QWidget*> widgets) {
    auto* place = new QWidget(parent);
    auto* grid = new QGridLayout(place);
    grid->setContentsMargins(0, 0, 0, 0);
    for (QWidget* widget : widgets) grid->addWidget(widget, 0, 0);
    return place;
}

QWidget* around(QWidget* parent, QLayout* layout) {
    auto* bare = new QWidget(parent);
    layout->setContentsMargins(0, 0, 0, 0);
    bare->setLayout(layout);
    return bare;
}

NumberRows::NumberRows() : grid_(new QGridLayout) {
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setHorizontalSpacing(kGap);
    grid_->setVerticalSpacing(kGap - 2);
    grid_->setColumnStretch(0, 1);
}

void NumberRows::add(QWidget* label, QWidget* box, QWidget* unit, int digits) {
    if (label) grid_->addWidget(labelOf(label, box), rows_, 0);
    grid_->addWidget(numberBox(box, digits), rows_, 1);
    if (unit) grid_->addWidget(unit, rows_, 2, Qt::AlignLeft | Qt::AlignVCenter);
    ++rows_;
}

void NumberRows::addLocked(QWidget* label, QWidget* box, QWidget* lock, QWidget* unit, int digits) {
    grid_->addWidget(labelOf(label, box), rows_, 0);
    constexpr int kClose = 1;
    grid_->addLayout(rowOf({numberBox(box, digits), lock}, kClose), rows_, 1);
    grid_->addWidget(unit, rows_, 2, Qt::AlignLeft | Qt::AlignVCenter);
    ++rows_;
}

}  // namespace verlink::desktop
