// How the screens around the work sit: title, user, home, help, about and quit.
#include <QLabel>

#include "desktop/artwork.h"
#include "desktop/button.h"
#include "desktop/caption.h"
#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/icons.h"
#include "desktop/layouts.h"

namespace verlink::desktop {

namespace {

/// A text larger than the rest.
QWidget* scaled(QWidget* label, double factor, bool bold = false) {
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

QHBoxLayout* foot(std::initializer_list<QWidget*> buttons) {
    QHBoxLayout* strip = row();
    strip->setContentsMargins(kInset, kInset, kInset, kInset);
    strip->addStretch(1);
    equalWidths(buttons);
    for (QWidget* button : buttons) strip->addWidget(button);
    return strip;
}

}  // namespace

void layoutTitle(Form& form, QWidget* room) {
    auto* whole = new QVBoxLayout(room);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    auto* art = new Artwork(room);
    auto* words = new QVBoxLayout(art);
    words->setContentsMargins(3 * kGroupGap, 2 * kGroupGap, 3 * kGroupGap, kGroupGap);
    words->addWidget(scaled(form.widget("Label1"), 3.6, true));
    words->addWidget(scaled(note(form.widget("lbl_Version")), 1.15));
    words->addStretch(1);
    whole->addWidget(art, 1);
    QWidget* back = form.widget("cmd_Abort");
    whole->addLayout(foot({back, forward(form.widget("cmd_Start"))}));
}

void layoutUser(Form& form, QWidget* room) {
    auto* whole = new QVBoxLayout(room);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    auto* middle = row(0);
    middle->addWidget(new Artwork(room), 1);
    QVBoxLayout* boxes = column();
    boxes->setContentsMargins(2 * kGroupGap, kGroupGap, 2 * kGroupGap, kGroupGap);
    boxes->addStretch(2);
    const char* names[] = {"txt_UserName", "txt_DesignNo", "txt_Filename"};
    for (int i = 0; i < 3; ++i) {
        auto* prompt = form.get<QLabel>("lbl_Prompt", i);
        QWidget* box = textBox(form.widget(names[i]), 30);
        prompt->setBuddy(box);
        boxes->addWidget(prompt);
        boxes->addWidget(box);
        boxes->addSpacing(kGap);
    }
    boxes->addStretch(3);
    middle->addLayout(boxes, 0);
    whole->addLayout(middle, 1);
    whole->addLayout(foot({forward(form.widget("cmd_Done"))}));
}

void layoutHomeScreen(Form& form, QWidget* room) {
    QVBoxLayout* whole = page(room);

    constexpr struct {
        const char* name;
        Picto picto;
    } kButtons[] = {{"cmd_Input", Picto::kInput}, {"cmd_Animate", Picto::kAnimate},   {"cmd_Plot", Picto::kPlot},
                    {"cmd_Print", Picto::kPrint}, {"cmd_Dynamics", Picto::kDynamics}, {"cmd_Balance", Picto::kBalance},
                    {"cmd_Quit", Picto::kQuit}};
    QHBoxLayout* buttons = row();
    for (const auto& [name, picto] : kButtons) {
        auto* button = form.get<Button>(name);
        button->setIconAbove(lineIcon(picto), 30);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        buttons->addWidget(button, 1);
    }
    whole->addLayout(buttons);

    QVBoxLayout* welcome = column();
    welcome->addStretch(2);
    for (QWidget* words : {scaled(form.widget("lbl_Name"), 2.8, true), note(form.widget("lbl_Advice"), true)}) {
        static_cast<QLabel*>(words)->setAlignment(Qt::AlignCenter);
        welcome->addWidget(words);
    }
    welcome->addStretch(3);
    auto* middle = new QWidget(room);
    auto* place = new QGridLayout(middle);
    place->setContentsMargins(0, kGap, 0, kGap);
    place->addLayout(welcome, 0, 0);
    place->addWidget(form.widget("Picture1"), 0, 0);
    whole->addWidget(middle, 1);

    FrameBox* status = form.frame("pnl_Status");
    QHBoxLayout* badges = row();
    for (int flag = 0; flag <= 8; ++flag) {
        auto* badge = form.get<Caption>("lbl_Status", flag);
        badge->setLook(Caption::Look::kBadge);
        badges->addWidget(collapse(badge));
    }
    badges->addStretch(1);
    badges->addWidget(note(form.widget("lbl_Status", 9)));
    badges->addWidget(form.widget("lbl_Status", 10));
    status->setContentBeside(badges);
    whole->addWidget(status);
    QHBoxLayout* last = row();
    last->addWidget(note(form.widget("lbl_Model")), 1);
    last->addWidget(collapse(form.widget("lbl_Checks")));
    whole->addLayout(last);
}

void layoutHelp(Form& form, QWidget* room) {
    auto* whole = new QVBoxLayout(room);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);

    // Rows are short: it stands beside the program.
    const auto strip = [whole] {
        QHBoxLayout* one = row();
        one->setContentsMargins(kInset, kGap, kInset, 0);
        whole->addLayout(one);
        return one;
    };
    QHBoxLayout* above = strip();
    QWidget* contents = form.widget("cmb_Contents");
    contents->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    contents->setMinimumWidth(120);
    above->addWidget(labelOf(form.widget("lbl_Contents"), contents));
    above->addWidget(contents, 1);

    QHBoxLayout* pages = strip();
    pages->addWidget(form.widget("cmd_PageBefore"));
    QWidget* page = numberBox(form.widget("txt_Page"), 3);
    pages->addWidget(labelOf(form.widget("lbl_Page"), page));
    pages->addWidget(page);
    pages->addWidget(form.widget("lbl_Pages"));
    pages->addWidget(form.widget("cmd_PageAfter"));
    pages->addStretch(1);
    for (const char* name : {"cmd_Smaller", "cmd_Larger", "cmd_FitWidth"}) pages->addWidget(form.widget(name));

    whole->addSpacing(kGap);
    whole->addWidget(form.widget("WebBrowser1"), 1);

    QHBoxLayout* finding = strip();
    QWidget* back = form.widget("cmd_Back");
    QWidget* words = textBox(form.widget("txt_Find"), 14);
    finding->addWidget(labelOf(form.widget("lbl_Find"), words));
    finding->addWidget(words);
    for (const char* name : {"cmd_FindBefore", "cmd_FindAfter"}) finding->addWidget(form.widget(name));
    finding->addStretch(1);
    finding->addWidget(note(form.widget("lbl_Finds")));

    QHBoxLayout* below = strip();
    below->setContentsMargins(kInset, kGap, kInset, kGap);
    below->addWidget(back);
    QWidget* found = form.widget("cmb_Finds");
    found->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    found->setMinimumWidth(100);
    below->addWidget(found, 1);
    below->addWidget(form.widget("chk_Follow"));
    below->addWidget(forward(form.widget("cmd_Close")));
}

void layoutAbout(Form& form, QWidget* room) {
    QVBoxLayout* whole = page(room);
    whole->addStretch(1);
    auto* icon = new QLabel(room);
    icon->setPixmap(programIcon().pixmap(64, 64));
    icon->setAlignment(Qt::AlignCenter);
    whole->addWidget(icon);
    for (QWidget* words : {scaled(form.widget("Label1"), 2, true), note(form.widget("lbl_Version"))}) {
        static_cast<QLabel*>(words)->setAlignment(Qt::AlignCenter);
        whole->addWidget(words);
    }
    whole->addStretch(1);
}

void layoutQuit(Form& form, QWidget* room) {
    auto* whole = new QVBoxLayout(room);
    whole->setContentsMargins(0, 0, 0, 0);
    auto* question = static_cast<QLabel*>(scaled(form.widget("Label1"), 1.25));
    question->setAlignment(Qt::AlignCenter);
    whole->addWidget(question, 1);
    whole->addLayout(foot({form.widget("cmd_YesQuit"), form.widget("cmd_NoQuit")}));
}

}  // namespace verlink::desktop
