// What the screens of plots, tables and the transform share.
#pragma once

class QHBoxLayout;
class QLayout;
class QWidget;

namespace verlink::desktop {

class Form;

/// The slim strip at the top: what is shown, and the coordinate system where there is one.
QLayout* headerStrip(Form& form);
/// The linkage's data, the run's, and the title block, in a column with a slim handle that folds it away.
QWidget* foldingSummary(Form& form);
/// Print, copy, back and next at the right end of the foot row.
void addWays(Form& form, QHBoxLayout* foot, const char* print, const char* back, const char* next,
             const char* copy = "cmd_Copy");
/// Check boxes or options of a group in one low strip.
QWidget* strip(Form& form, const char* frame, QLayout* content);

}  // namespace verlink::desktop
