// How the screens of forces sit: the table of mass properties and loads, the equations, the balance with its graphs.
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>

#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/layouts.h"
#include "desktop/layouts_output.h"
#include "desktop/picture_widget.h"

namespace verlink::desktop {

namespace {

constexpr int kFirstLink = 2, kLastLink = 4;
constexpr int kDigits = 10;  ///< of a box in the table
constexpr int kActionWidth = 108;
constexpr int kTableWidth = 900;  ///< a wider table would part the titles from their rows

/// The columns that all groups of the table share: name, a box for each link, unit.
QGridLayout* tableColumns(const QWidget* font) {
    const QFontMetrics metrics = font->fontMetrics();
    auto* grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(kGap - 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnMinimumWidth(4, metrics.horizontalAdvance(QStringLiteral("in-lb-s^2")) + 4);
    return grid;
}

/// A quantity: its name, its box for each link, its unit once at the row's end.
void addQuantity(Form& form, QGridLayout* grid, const char* name, const char* boxes, QWidget* unit) {
    const int line = grid->rowCount();
    // The words are of all boxes of the row; each is known by its own tip.
    grid->addWidget(labelOf(form.widget(name), nullptr), line, 0);
    for (int link = kFirstLink; link <= kLastLink; ++link)
        grid->addWidget(numberBox(form.widget(boxes, link), kDigits), line, link - 1);
    grid->addWidget(unit, line, 4, Qt::AlignLeft | Qt::AlignVCenter);
}

struct Quantity {
    const char *name, *boxes, *unit;
    int unit_index;
};

QGridLayout* group(Form& form, const char* frame, std::initializer_list<Quantity> quantities) {
    QGridLayout* grid = tableColumns(form.widget(frame));
    for (const Quantity& q : quantities) addQuantity(form, grid, q.name, q.boxes, form.widget(q.unit, q.unit_index));
    form.frame(frame)->setContentBeside(grid);
    return grid;
}

constexpr int kAlone = platform::kNoIndex;

/// The table, group under group, its heads in line with the boxes.
QWidget* massTable(Form& form) {
    QVBoxLayout* table = column();
    QGridLayout* heads = tableColumns(form.widget("lbl_Header"));
    heads->addWidget(note(form.widget("lbl_Header")), 1, 0);
    for (int link = kFirstLink; link <= kLastLink; ++link) {
        auto* head = static_cast<QLabel*>(title(numberBox(form.widget("lbl_Link", link), kDigits)));
        head->setWordWrap(true);
        head->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
        heads->addWidget(head, 1, link - 1);
    }
    // The column of units is empty here, and has no gap before it.
    heads->setContentsMargins(kInset, 0, kInset + kGap, 0);
    table->addLayout(heads);

    group(
        form, "fra_Mass",
        {{"lbl_Mass", "txt_Mass", "lbl_MassUnit", kAlone}, {"lbl_Inertia", "txt_Inertia", "lbl_InertiaUnit", kAlone}});
    group(form, "fra_CG",
          {{"lbl_DistCG", "txt_DistCG", "Lbl_DistUnit", 1}, {"lbl_AngCG", "txt_AngCG", "lbl_AngUnit", 1}});
    group(form, "fra_Force",
          {{"lbl_MagForce", "txt_MagForce", "lbl_ForceUnit", 1}, {"lbl_AngForce", "txt_AngForce", "lbl_AngUnit", 2}});
    group(form, "fra_ForceAt",
          {{"lbl_DistP", "txt_DistP", "Lbl_DistUnit", 2}, {"lbl_AngP", "txt_AngP", "lbl_AngUnit", 3}});
    QGridLayout* torques = group(form, "fra_Torque", {{"lbl_Torque", "txt_Torque", "lbl_TorqueUnit", kAlone}});
    torques->addWidget(form.widget("chk_Torque"), torques->rowCount(), 1, 1, 4, Qt::AlignLeft);
    group(form, "fra_Frict", {{"lbl_Frict", "txt_Frict", "lbl_ForceUnit", 2}});
    for (const char* frame : {"fra_Mass", "fra_CG", "fra_Force", "fra_ForceAt", "fra_Torque"})
        table->addWidget(form.widget(frame), 2);
    table->addWidget(form.widget("fra_Frict"), 1);
    QHBoxLayout* solve = row();
    solve->addWidget(note(form.widget("lbl_Note")));
    solve->addStretch(1);
    solve->addWidget(form.widget("cmd_Solve"));
    solve->addWidget(form.widget("cmd_Matrix"));
    for (const char* button : {"cmd_Solve", "cmd_Matrix"}) form.widget(button)->setMinimumWidth(kActionWidth);
    table->addLayout(solve);
    QWidget* all = around(form.centralWidget(), table);
    all->setMaximumWidth(kTableWidth);
    return all;
}

QWidget* number(Form& form, const char* name, int index) {
    auto* label = form.get<QLabel>(name, index);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

/// What balance of a link takes, or one of its counterweights: rows of name, value and unit.
QLayout* neededBalance(Form& form) {
    auto* grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(0, 1);
    const auto add = [&](int link, const char* words, const char* product, const char* angle) {
        grid->addWidget(title(form.widget(words)), grid->rowCount(), 0, 1, 3);
        const auto value = [&](QWidget* name, QWidget* read, QWidget* unit) {
            const int line = grid->rowCount();
            grid->addWidget(labelOf(name, nullptr), line, 0);
            grid->addWidget(readOut(read, 9), line, 1);
            grid->addWidget(unit, line, 2, Qt::AlignLeft | Qt::AlignVCenter);
        };
        value(form.widget("lbl_MRName", link), form.widget(product), form.widget("lbl_MRUnit", link / 2 - 1));
        value(form.widget("lbl_AngName", link), form.widget(angle), form.widget("lbl_AngUnit", link));
    };
    add(2, "lbl_Needed2", "lbl_MR2", "lbl_Ang2");
    grid->setRowMinimumHeight(grid->rowCount(), kGap - 2);
    add(4, "lbl_Needed4", "lbl_MR4", "lbl_Ang4");
    return grid;
}

QWidget* counterweight(Form& form, int link) {
    NumberRows rows;
    const int unit = link == 2 ? 0 : 2;
    rows.add(form.widget("lbl_BerkMass", link), form.widget("txt_BerkMass", link), form.widget("lbl_Unit", unit));
    rows.add(form.widget("lbl_Radius", link), form.widget("txt_Radius", link), form.widget("lbl_Unit", unit + 1));
    rows.add(form.widget("lbl_MRproduct", link), form.widget("txt_MRproduct", link),
             form.widget("lbl_MRUnit", link / 2 + 1));
    form.frame("fra_Link", link)->setContent(rows.layout());
    return form.widget("fra_Link", link);
}

/// The sheet that the table of pulses is printed on, as wide as its lines.
QWidget* pulseSheet(Form& form) {
    constexpr int kLetters = 31;
    PictureWidget* sheet = form.picture("pct_Pict1");
    sheet->fill();
    const QFontMetrics metrics(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    sheet->setFixedWidth(metrics.horizontalAdvance(QString(kLetters, u'0')) + 2 * kGap);
    return sheet;
}

}  // namespace

void layoutMassProp(Form& form, QWidget* room) {
    QHBoxLayout* middle = row();
    middle->addStretch(1);
    middle->addWidget(massTable(form), 1000);
    middle->addStretch(1);

    QVBoxLayout* all = page(room);
    QHBoxLayout* foot = row();
    addWays(form, foot, "cmd_Print", "cmd_Cancel", "cmd_Done");
    all->addLayout(middle, 2);
    all->addStretch(1);
    all->addLayout(foot);
}

void layoutMatrix(Form& form, QWidget* room) {
    constexpr int kUnknowns = 9, kBeside = 10;
    constexpr int kCell = 68;  ///< pixels of the narrowest column
    auto* matrix = new QGridLayout;
    auto* vector = new QGridLayout;
    for (QGridLayout* grid : {matrix, vector}) {
        grid->setContentsMargins(0, 0, 0, 0);
        grid->setHorizontalSpacing(kGap);
        grid->setVerticalSpacing(kGap);
    }
    for (int column = 1; column <= kUnknowns; ++column) {
        matrix->addWidget(title(number(form, "lbl_Var", column)), 0, column - 1);
        matrix->setColumnMinimumWidth(column - 1, kCell);
        matrix->setColumnStretch(column - 1, 1);
    }
    for (int line = 1; line <= kUnknowns; ++line) {
        const std::string name = "lbl_A" + std::to_string(line);
        for (int column = 1; column <= kUnknowns; ++column)
            matrix->addWidget(number(form, name.c_str(), column), line, column - 1);
        vector->addWidget(title(form.widget("lbl_Var", kBeside + line)), line, 0);
        vector->addWidget(number(form, "lbl_B", line), line, 1);
        for (QGridLayout* grid : {matrix, vector}) grid->setRowStretch(line, 1);
    }
    // The heads of the matrix take as much of the height as nothing beside them.
    vector->setRowMinimumHeight(0, form.widget("lbl_Var", 1)->sizeHint().height() + kGap);
    vector->setColumnMinimumWidth(1, kCell);
    vector->setColumnStretch(1, 1);
    form.frame("fra_A")->setContent(matrix);
    form.frame("fra_C")->setContent(vector);

    QHBoxLayout* both = row();
    both->addWidget(form.widget("fra_A"), 1);
    both->addWidget(form.widget("fra_C"));
    QHBoxLayout* foot = row();
    foot->addWidget(note(form.widget("lbl_Note")));
    addWays(form, foot, "cmd_Print", "cmd_Back", "cmd_Done");
    QVBoxLayout* all = page(room);
    all->addLayout(both, 1);
    all->addLayout(foot);
}

void layoutBalance(Form& form, QWidget* room) {
    form.frame("fra_Needed")->setContent(neededBalance(form));
    QVBoxLayout* data = column();
    data->addWidget(note(form.widget("lbl_Header")));
    data->addWidget(form.widget("fra_Needed"));
    data->addWidget(counterweight(form, 2));
    data->addWidget(counterweight(form, 4));
    form.frame("fra_Fluct")->setContentBeside(rowOf({numberBox(form.widget("txt_Fluct"), 6)}));
    data->addWidget(form.widget("fra_Fluct"));
    data->addWidget(form.widget("cmd_Calc"));
    data->addStretch(1);

    QVBoxLayout* graphs = column();
    for (int i = 0; i <= 1; ++i) {
        form.widget("grf_Plot", i)->setMinimumSize(460, 220);
        graphs->addWidget(form.widget("grf_Plot", i), 1);
    }

    QHBoxLayout* middle = row(kGroupGap);
    middle->addLayout(data);
    middle->addLayout(graphs, 1);
    middle->addWidget(pulseSheet(form));

    QHBoxLayout* foot = row();
    foot->addWidget(strip(form, "fra_Back",
                          rowOf({form.widget("opt_Back", 0), form.widget("opt_Back", 1), form.widget("opt_Back", 2)})));
    // Words of the legends that have no place of their own.
    for (const char* words : {"lbl_Function", "lbl_Component"})
        for (int i = 0; i <= 1; ++i) foot->addWidget(collapse(form.widget(words, i)));
    addWays(form, foot, "cmd_Print", "cmd_back", "cmd_Done", "cmd_copy");
    QVBoxLayout* all = page(room);
    all->addLayout(middle, 1);
    all->addLayout(foot);
}

}  // namespace verlink::desktop
