// How a message's icon, buttons and answer stand in Qt's message box.
#include "desktop/messages.h"

#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
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
};

std::vector<Choice> choicesOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::kOk: return {{QMessageBox::Ok, Answer::kOk}};
        case Buttons::kOkCancel: return {{QMessageBox::Ok, Answer::kOk}, {QMessageBox::Cancel, Answer::kCancel}};
        case Buttons::kYesNo: return {{QMessageBox::Yes, Answer::kYes}, {QMessageBox::No, Answer::kNo}};
        case Buttons::kRetryCancel:
            return {{QMessageBox::Retry, Answer::kRetry}, {QMessageBox::Cancel, Answer::kCancel}};
        case Buttons::kAbortRetryIgnore:
            return {{QMessageBox::Abort, Answer::kAbort},
                    {QMessageBox::Retry, Answer::kRetry},
                    {QMessageBox::Ignore, Answer::kIgnore}};
    }
    return {};
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

Answer showMessage(QWidget* parent, const platform::Message& message) {
    countInterruption();
    QMessageBox box(parent);
    box.setWindowTitle(message.title.empty() ? QStringLiteral("Verlink") : toQt(message.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(lines(message.text));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setIcon(iconOf(message.icon));
    const std::vector<Choice> choices = choicesOf(message.buttons);
    for (const Choice& choice : choices) box.addButton(choice.button);
    const auto first =
        static_cast<std::size_t>(std::clamp<int>(message.default_button, 1, static_cast<int>(choices.size())) - 1);
    box.setDefaultButton(choices[first].button);
    keepLinesWhole(box);
    const int pressed = box.exec();
    for (const Choice& choice : choices)
        if (choice.button == pressed) return choice.answer;
    // The window was closed where no button stands for that: the most harmless answer is the last one.
    return choices.back().answer;
}

}  // namespace verlink::desktop
