// A column beside a drawing that folds away.
#pragma once

#include <QAbstractButton>
#include <string>
#include <vector>

class QBoxLayout;

namespace verlink::desktop {

class Form;

/// The slim handle at the side of a column: a press, the space bar or Return there folds the column away, or brings it
/// back. Folding hides and nothing else: boxes keep what was typed, and the focus of the screen stays. What was folded
/// by a hand is kept in the settings; code that gives the focus to a box in there unfolds the column.
class FoldHandle : public QAbstractButton {
   public:
    enum class Side { kLeft, kRight };

    /// `side` is where its column lies; `holds` says in words what is in it, `name` what it is kept under.
    FoldHandle(Form& form, QWidget* column, Side side, const QString& name, const QString& holds);
    QWidget* column() const { return column_; }
    Side side() const { return side_; }
    bool isFolded() const { return isChecked(); }
    void setFolded(bool folded);
    /// As it was left in the last session.
    void takeKept();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

   protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

   private:
    void press();
    void tell();

    Form& form_;
    QWidget* column_;
    Side side_;
    QString holds_;
    std::string kept_as_;
};

/// A column with its handle in a row of columns without spacing, the handle between it and its neighbour.
void addFolding(QBoxLayout* columns, FoldHandle* handle);
std::vector<FoldHandle*> foldsOf(const QWidget* window);
/// Brings a widget that lies in a folded column of the window into sight.
void unfoldAround(QWidget* widget);

}  // namespace verlink::desktop
