// The pieces that layouts are made of, on a grid of 8 pixels.
#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <initializer_list>

class QLabel;
class QLayout;
class QWidget;

namespace verlink::desktop {

inline constexpr int kGap = 8;        ///< between a label and its box, and between rows
inline constexpr int kGroupGap = 16;  ///< between groups
inline constexpr int kInset = 12;     ///< inside a group's frame and around a window

/// Columns and rows without margins.
QVBoxLayout* column(int spacing = kGap);
QHBoxLayout* row(int spacing = kGap);
/// A row or column of these widgets, in order.
QHBoxLayout* rowOf(std::initializer_list<QWidget*> widgets, int spacing = kGap);
QVBoxLayout* columnOf(std::initializer_list<QWidget*> widgets, int spacing = kGap);
/// The layout of a whole window: a column with the margin of a window.
QVBoxLayout* page(QWidget* room);

/// How a box looks: for a number (about 9 digits, right-aligned), a short number, or a line of text.
QWidget* numberBox(QWidget* box, int digits = 9);
QWidget* textBox(QWidget* box, int letters = 24);
/// A label at the left of its box, right-aligned; the box is known by its text to those who do not see it.
QWidget* labelOf(QWidget* label, QWidget* box);
/// A label as a title of a group of controls, bold.
QWidget* title(QWidget* label);
/// A label as a quiet note: smaller contrast, wrapped if `wrapped`.
QWidget* note(QWidget* label, bool wrapped = false);
/// A label as a read-out: a small box with a border, `letters` wide, right-aligned.
QWidget* readOut(QWidget* label, int letters);
/// The one button that goes forward.
QWidget* forward(QWidget* button);
/// Gives all buttons of a row the same width.
void equalWidths(std::initializer_list<QWidget*> widgets);
/// The widget gives its place away while it is hidden.
QWidget* collapse(QWidget* widget);
/// Several widgets in one place, of which the screen shows one at a time.
QWidget* inOnePlace(QWidget* parent, std::initializer_list<QWidget*> widgets);
/// A bare widget around a layout, where a layout wants one thing to place or to align.
QWidget* around(QWidget* parent, QLayout* layout);

/// Rows of (label, box, unit) with their columns aligned.
class NumberRows {
   public:
    NumberRows();
    /// `unit` may be null, and so may `label`.
    void add(QWidget* label, QWidget* box, QWidget* unit = nullptr, int digits = 9);
    /// The same with a lock close beside the box.
    void addLocked(QWidget* label, QWidget* box, QWidget* lock, QWidget* unit, int digits = 9);
    QGridLayout* layout() const { return grid_; }

   private:
    QGridLayout* grid_;
    int rows_ = 0;
};

}  // namespace verlink::desktop
