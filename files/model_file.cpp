// The table of the model file's values, its writer, and its reader with the rules for older layouts.
#include "files/model_file.h"

#include <algorithm>
#include <array>

#include "core/text.h"
#include "files/recent_files.h"
#include "platform/desktop_services.h"
#include "platform/file_system.h"
#include "platform/guard.h"

namespace verlink {

using namespace platform;

namespace {

constexpr int kTagLine = 1, kRevLine = 2, kCyclesLine = 53, kFormatLine = 54;
constexpr int kMainBlock = 80, kPolarLine = 92, kZoomLine = 96, kLastField = 96;
constexpr int kReserved = 87;
constexpr char kEndMarker[] = "Last Item";

using FieldTable = std::array<FileField, kLastField>;

/// As long as the file is.
// NOLINTNEXTLINE(readability-function-size)
FieldTable Fields_Of(LinkageModel& m) {
    return {{
        {1, "ProgramTag", &m.ProgramTag, Counts::kNo},
        {2, "RevNumber", &m.RevNumber, Counts::kNo},
        {3, "ModelName", &m.ModelName},
        {4, "UserName", &m.UserName},
        {5, "DesignNumber", &m.DesignNumber},
        {6, "DateStr", &m.DateStr, Counts::kNo},
        {7, "TimeStr", &m.TimeStr, Counts::kNo},
        {8, "L2", &m.L2},
        {9, "L3", &m.L3},
        {10, "L4", &m.L4},
        {11, "L1", &m.L1},
        {12, "Rpa", &m.Rpa},
        {13, "Delta", &m.Delta},
        {14, "P21x", &m.P21x},
        {15, "P21y", &m.P21y},
        {16, "P31x", &m.P31x},
        {17, "P31y", &m.P31y},
        {18, "SynAlpha2", &m.SynAlpha2},
        {19, "SynAlpha3", &m.SynAlpha3},
        {20, "SynBeta2", &m.SynBeta2},
        {21, "SynBeta3", &m.SynBeta3},
        {22, "SynGamma2", &m.SynGamma2},
        {23, "SynGamma3", &m.SynGamma3},
        {24, "O2x", &m.O2x},
        {25, "O2y", &m.O2y},
        {26, "O4x", &m.O4x},
        {27, "O4y", &m.O4y},
        {28, "SynTheta", &m.SynTheta},
        {29, "SynTheta2", &m.SynTheta2},
        {30, "SynPhi", &m.SynPhi},
        {31, "SynSigma", &m.SynSigma},
        {32, "SynXi", &m.SynXi},
        {33, "Synthesized", &m.Synthesized, Counts::kNo},
        {34, "TimeStart", &m.TimeStart},
        {35, "TimeEnd", &m.TimeEnd},
        {36, "TimeStep", &m.TimeStep},
        {37, "ThetaZero", &m.ThetaZero},
        {38, "Omega2Input", &m.Omega2Input},
        {39, "Alpha2", &m.Alpha2, Counts::kByTime},
        {40, "ThetaStartStr", &m.ThetaStartStr, Counts::kByAngle},
        {41, "ThetaEndStr", &m.ThetaEndStr, Counts::kByAngle},
        {42, "ThetaStepStr", &m.ThetaStepStr, Counts::kByAngle},
        {43, "CircuitIndex", &m.CircuitIndex},
        {44, "Calctype", &m.Calctype},
        {45, "Units", &m.Units},
        {46, "TraceFlag", &m.TraceFlag},
        {47, "RedrawFlag", &m.RedrawFlag, Counts::kNo},
        {48, "HideLinksFlag", &m.HideLinksFlag},
        {49, "ShowCentrodesFlag", &m.ShowCentrodesFlag},
        {50, "P1x", &m.P1x},
        {51, "P1y", &m.P1y},
        {52, "AnimateDelay", &m.AnimateDelay},
        {kCyclesLine, "Cycles", &m.Cycles},
        {kFormatLine, "FileVersion", &m.FileVersion, Counts::kNo},
        {55, "PrintStep", &m.PrintStep},
        {56, "FigureTitle", &m.FigureTitle},
        {57, "Grashof_Code", &m.Grashof_Code, Counts::kNo},
        {58, "CG(2,0)", &m.CG(2, 0)},
        {59, "CG(2,1)", &m.CG(2, 1)},
        {60, "CG(3,0)", &m.CG(3, 0)},
        {61, "CG(3,1)", &m.CG(3, 1)},
        {62, "CG(4,0)", &m.CG(4, 0)},
        {63, "CG(4,1)", &m.CG(4, 1)},
        {64, "LinkMass(2)", &m.LinkMass(2)},
        {65, "LinkMass(3)", &m.LinkMass(3)},
        {66, "LinkMass(4)", &m.LinkMass(4)},
        {67, "LinkInertia(2)", &m.LinkInertia(2)},
        {68, "LinkInertia(3)", &m.LinkInertia(3)},
        {69, "LinkInertia(4)", &m.LinkInertia(4)},
        {70, "ExtForceMag(3)", &m.ExtForceMag(3)},
        {71, "ExtForceAng(3)", &m.ExtForceAng(3)},
        {72, "ForceDist3", &m.ForceDist3},
        {73, "ForceAng3", &m.ForceAng3},
        {74, "ExtTorque(3)", &m.ExtTorque(3)},
        {75, "FrictionForce", &m.FrictionForce},
        {76, "ExtForceMag(4)", &m.ExtForceMag(4)},
        {77, "ExtForceAng(4)", &m.ExtForceAng(4)},
        {78, "ForceDist4", &m.ForceDist4},
        {79, "ForceAng4", &m.ForceAng4},
        {80, "ExtTorque(4)", &m.ExtTorque(4)},
        {81, "LineAngle", &m.LineAngle},
        {82, "Link1Angle", &m.Link1Angle},
        {83, "Link1AngleRad", &m.Link1AngleRad, Counts::kNo},
        {84, "NSteps", &m.NSteps, Counts::kNo},
        {85, "Link1X", &m.Link1X},
        {86, "Link1Y", &m.Link1Y},
        {87, "CamDirection", &m.CamDirection},
        {88, "CamDataLength1", &m.CamDataLength1},
        {89, "CamPhase", &m.CamPhase},
        {90, "CamDriven", &m.CamDriven},
        {91, "LinkDriven", &m.LinkDriven},
        {kPolarLine, "PolarCoords", &m.PolarCoords},
        {93, "Model5Name", &m.Model5Name},
        {94, "TorqueImported", &m.TorqueImported},
        {95, "Delta2", &m.Delta2},
        {kZoomLine, "ZoomFactor", &m.ZoomFactor},
    }};
}

/// Where a value from outside goes: a file's own tag and revisions do not replace the program's.
auto Place_To_Read(LinkageModel& record, const FileField& field) {
    switch (field.line) {
        case kTagLine: return decltype(field.place)(&record.FileTag);
        case kRevLine: return decltype(field.place)(&record.FileRev);
        case kFormatLine: return decltype(field.place)(&record.FileFormat);
        default: return field.place;
    }
}

/// Values that older versions left at 0.
void Settle(LinkageModel& record, const FileField& field) {
    if (field.line == kCyclesLine) record.Cycles = std::max<int>(record.Cycles, 1);
    if (field.line == kZoomLine && record.ZoomFactor == 0) record.ZoomFactor = 1;
}

struct Take {
    TextReader& reader;
    void operator()(std::string* place) const { *place = reader.String(); }
    void operator()(Single* place) const { *place = reader.Float(); }
    void operator()(Integer* place) const { *place = reader.Short(); }
    void operator()(Long* place) const { *place = reader.LongInteger(); }
    void operator()(bool* place) const { *place = reader.Boolean(); }
};

struct Store {
    const std::string& text;
    void operator()(std::string* place) const {
        if (text.size() > kLongestValue) Raise(kOverflow);
        *place = text;
    }
    void operator()(bool* place) const {
        *place = TextReader(text.starts_with('#') ? text : "#" + text + "#").Boolean();
    }
    template <class Number>
    void operator()(Number* place) const {
        *place = Number_Of(text);
    }
};

void Read_Lines(TextReader& reader, LinkageModel& record, int first, int last) {
    const FieldTable fields = Fields_Of(record);
    for (int line = first; line <= last; ++line) {
        const FileField& field = fields[static_cast<std::size_t>(line - 1)];
        std::visit(Take{reader}, Place_To_Read(record, field));
        Settle(record, field);
    }
}

/// The ground link of files that know only its length.
void Use_Polar_Ground(LinkageModel& record) {
    record.PolarCoords = true;
    record.Link1X = record.L1;
    record.Link1Y = 0;
}

/// What a file of an older layout says nothing of is not there, whatever the model before had.
void Forget_Extended_Block(LinkageModel& record) {
    record.Link1Angle = 0;
    record.Link1X = record.L1;
    record.Link1Y = 0;
    record.CamDriven = false;
    record.LinkDriven = false;
    record.TorqueImported = false;
    record.Delta2 = 0;
    record.NSteps = 0;
    record.CamDirection = 0;
    record.CamDataLength1 = 0;
    record.CamPhase = 0;
    record.Model5Name.clear();
    // A drive would be that of the model before.
    if (record.Calctype == run::kCamDriven || record.Calctype == run::kLinkDriven) record.Calctype = run::kByAngle;
}

bool Holds_What_Is_No_Model(const std::string& path) {
    if (!Is_Plain_File(path)) return false;
    // A model says in its first line that it is one.
    const std::string content = Read_Beginning(path, kLongestValue);
    return !content.empty() && !Is_Model(content);
}

void Write_Model(const std::string& content, Replacing replacing) {
    const std::string& path = Model.FilePath;
    std::string told = "File was successfully written to " + std::string(CR) + path;
    if (replacing == Replacing::kUnasked && Holds_What_Is_No_Model(path))
        told += std::string(CR) + CR + "The file that was there is no model.  It is kept as " + CR +
                Write_File_And_Keep(path, content);
    else
        Write_File(path, content);
    Note_Recent(path);
    Tell(told, Icon::kInformation);
}

}  // namespace

std::span<const FileField> File_Fields() {
    static const FieldTable fields = Fields_Of(Model);
    return fields;
}

bool Set_File_Field(const std::string& name, const std::string& text, LinkageModel& record) {
    std::string wanted = name;
    std::erase(wanted, ' ');
    const FieldTable fields = Fields_Of(record);
    const auto field = std::ranges::find_if(fields, [&](const FileField& f) { return wanted == f.name; });
    if (field == fields.end()) return false;
    std::visit(Store{text}, Place_To_Read(record, *field));
    Settle(record, *field);
    return true;
}

File_Snapshot Snapshot_Of_File() {
    TextWriter writer;
    for (const FileField& field : File_Fields()) {
        std::visit([&](const auto* place) { writer.Put(*place); }, field.place);
        writer.EndLine();
    }
    for (int i = 0; i < kReserved; ++i) {
        writer.Put("");
        writer.EndLine();
    }
    writer.Put(kEndMarker);
    writer.EndLine();
    File_Snapshot snapshot{writer.Content(), {}, {}};
    const auto& table = Model.RunTable;
    for (int step = 0; Model.Imported() && step <= Model.NSteps; ++step)
        for (const Single value : {table.DriveTheta(step), table.Omega(step, 0), table.Alpha(step, 0)})
            snapshot.motion.push_back(value);
    for (int step = 0; Model.TorqueImported && step <= Model.NSteps; ++step)
        snapshot.torque.push_back(table.ImportedTorque(step));
    return snapshot;
}

std::string File_Text(const File_Snapshot& snapshot) {
    TextWriter tables;
    int column = 0;
    for (const Single value : snapshot.motion) {
        tables.Put(value);
        if (++column % 3 == 0) tables.EndLine();
    }
    for (const Single value : snapshot.torque) {
        tables.Put(value);
        tables.EndLine();
    }
    return snapshot.head + tables.Content();
}

std::string File_Content() { return File_Text(Snapshot_Of_File()); }

bool Writefile(Replacing replacing) {
    return Guarded("Writefile", [replacing] { Write_Model(File_Content(), replacing); });
}

bool Writefile(const std::string& content) {
    return Guarded("Writefile", [&content] { Write_Model(content, Replacing::kAgreed); });
}

bool Read_Newfile(TextReader& reader, LinkageModel& record) {
    return Guarded("Read_Newfile", [&] {
        Read_Lines(reader, record, kRevLine + 1, kMainBlock);
        const std::string first = record.FileRev.substr(0, 1);
        const double format = Val(record.FileFormat);
        const bool extended = (first == "7" && format >= 2.0) || Val(record.FileRev) > 7.0;
        if (!extended) {
            Forget_Extended_Block(record);
            if (Val(first) < 7) Use_Polar_Ground(record);
            return;
        }
        Read_Lines(reader, record, kMainBlock + 1, kPolarLine - 1);
        if (first == "7" && format < 4.0)
            Use_Polar_Ground(record);
        else
            Read_Lines(reader, record, kPolarLine, kPolarLine);
        Read_Lines(reader, record, kPolarLine + 1, kLastField);
        // The reserved strings and the end marker, whatever they hold.
        for (int i = 0; i < kReserved + 1; ++i) reader.String();
        auto& table = record.RunTable;
        if (record.Imported()) {
            for (int step = 0; step <= record.NSteps; ++step) {
                table.DriveTheta(step) = reader.Float();
                table.Omega(step, 0) = reader.Float();
                table.Alpha(step, 0) = reader.Float();
            }
        }
        if (record.TorqueImported)
            for (int step = 0; step <= record.NSteps; ++step) table.ImportedTorque(step) = reader.Float();
    });
}

}  // namespace verlink
