// How a message's icon, buttons and answer stand in Qt's message box.
#include "desktop/messages.h"

#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <vector>

#include "desktop/text.h"

namespace verlink::desktop {

namespace {

using platform::Answer;
using platform::Buttons;

int interruptions_so_far = 0;

struct Choice {
    QMessageBox::StandardButton button;
    Answer answer;
    const char* caption = nullptr;  ///< instead of a standard button, whose place among others the style decides
};

std::vector<Choice> choicesOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::kOk: return {{QMessageBox::Ok, Answer::kOk}};
        case Buttons::kOkCancel: return {{QMessageBox::Ok, Answer::kOk}, {QMessageBox::Cancel, Answer::kCancel}};
        case Buttons::kYesNo: return {{QMessageBox::Yes, Answer::kYes}, {QMessageBox::No, Answer::kNo}};
        case Buttons::kRetryCancel:
            return {{QMessageBox::Retry, Answer::kRetry}, {QMessageBox::Cancel, Answer::kCancel}};
        case Buttons::kAbortRetryIgnore:
            return {{QMessageBox::NoButton, Answer::kAbort, "&Abort"},
                    {QMessageBox::NoButton, Answer::kRetry, "&Retry"},
                    {QMessageBox::NoButton, Answer::kIgnore, "&Ignore"}};
    }
    return {};
}

QPushButton* addButton(QMessageBox& box, const Choice& choice) {
    if (!choice.caption) return box.addButton(choice.button);
    // Of one role, they stand as they were added.
    return box.addButton(QString::fromLatin1(choice.caption), QMessageBox::ActionRole);
}

/// The program breaks its lines itself: the box is as wide as the longest one, where the display has the room.
void keepLinesWhole(QMessageBox& box) {
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!label) return;
    const int wished = label->fontMetrics().size(0, box.text()).width() + 2;
    const int most = QGuiApplication::primaryScreen()->availableSize().width() * 3 / 4;
    label->setMinimumWidth(std::min(wished, most));
}

QMessageBox::Icon iconOf(platform::Icon icon) {
    switch (icon) {
        case platform::Icon::kExclamation: return QMessageBox::Warning;
        case platform::Icon::kQuestion: return QMessageBox::Question;
        case platform::Icon::kInformation: return QMessageBox::Information;
        case platform::Icon::kNone: break;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

int interruptions() { return interruptions_so_far; }
void countInterruption() { ++interruptions_so_far; }

/// It is always the last one.
Answer harmlessAnswer(const platform::Message& message) { return choicesOf(message.buttons).back().answer; }

Answer showMessage(QWidget* parent, const platform::Message& message) {
    countInterruption();
    QMessageBox box(parent);
    // What stands beside the program can be read meanwhile.
    if (parent) box.setWindowModality(Qt::WindowModal);
    box.setWindowTitle(message.title.empty() ? QStringLiteral("Verlink") : toQt(message.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(lines(message.text));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setIcon(iconOf(message.icon));
    const std::vector<Choice> choices = choicesOf(message.buttons);
    std::vector<QPushButton*> buttons;
    buttons.reserve(choices.size());
    for (const Choice& choice : choices) buttons.push_back(addButton(box, choice));
    const auto first =
        static_cast<std::size_t>(std::clamp<int>(message.default_button, 1, static_cast<int>(choices.size())) - 1);
    box.setDefaultButton(buttons[first]);
    // Where none of them says No or Cancel, Escape and closing the window answer as the default does.
    if (message.buttons == Buttons::kAbortRetryIgnore) box.setEscapeButton(buttons[first]);
    keepLinesWhole(box);
    box.exec();
    for (std::size_t i = 0; i < choices.size(); ++i)
        if (buttons[i] == box.clickedButton()) return choices[i].answer;
    // The window was closed where no button stands for that.
    return harmlessAnswer(message);
}

}  // namespace verlink::desktop
