// The model file: one table of its values, its writer, its reader, and the file menu's actions.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/linkage_model.h"
#include "files/text_notation.h"
#include "platform/desktop_services.h"
#include "platform/screen.h"

namespace verlink {

/// Whether a change of a stored value is a change of the model.
enum class Counts {
    kYes,
    kNo,       ///< it follows from others, or is the program's own
    kByAngle,  ///< in runs by angle alone; in others it follows
    kByTime    ///< in all but those, where it follows
};

/// One stored value: the line, the field's name as users write it ("L2", "CG(3,1)"), and where it lies.
struct FileField {
    int line;
    const char* name;
    std::variant<std::string*, Single*, Integer*, Long*, bool*> place;
    Counts counts = Counts::kYes;
};

/// Lines 1 to 96 in the file's order, the reserved strings and the end marker left out. The places are fields of
/// `Model`; lines 1, 2 and 54 are those that the writer writes.
std::span<const FileField> File_Fields();

/// Stores a text in the field of that name as if the file had held it; blanks in the name do not count. False for
/// an unknown name; failure 13 or 6 for a text that the field cannot take. A boolean may come without its hashes.
bool Set_File_Field(const std::string& name, const std::string& text, LinkageModel& record = Model);

/// The whole file from the model, as text.
std::string File_Content();

/// What the file would hold, taken from the model in a moment, to be put into words later, in any thread.
struct File_Snapshot {
    std::string head;            ///< all but the tables, in words already
    std::vector<Single> motion;  ///< imported: angle, velocity and acceleration of each step
    std::vector<Single> torque;  ///< imported, of each step
    bool operator==(const File_Snapshot&) const = default;
};
File_Snapshot Snapshot_Of_File();
std::string File_Text(const File_Snapshot& snapshot);

/// Whether a file of this content is one of the program's models.
bool Is_Model(std::string_view content);

enum class Replacing { kAgreed, kUnasked };

/// Writes the model to `FilePath` and says so; failures go to the reporter as "Writefile". False when it failed; the
/// old file is whole then. A file that is no model is kept under another name, and that is said, when nobody was asked
/// whether it may go.
bool Writefile(Replacing replacing = Replacing::kAgreed);
/// The same for a content that the model had before.
bool Writefile(const std::string& content);

// A file is read into a record of its own, which takes the place of the model when all of it was read and derived; else
// the model stays as it was, and its results with it.

/// Reads a model from a file's content and puts it on the screens; unless the program has just started, says so and
/// shows the input screen. `path` becomes `FilePath` and its base `ModelName`; without one they stay. Failures go to
/// the reporter under "Readfile" or "Read_Newfile", a foreign file is refused with a message. False when refused or
/// failed.
bool Readfile(const std::string& content, const std::string& path = {});

/// The same for a program without screens. `amend` runs before what follows from the values is derived, on the record
/// that is being read, to replace values as if the file had held them.
bool Load_Model(const std::string& content, const std::function<void(LinkageModel&)>& amend = {});

/// Lines 3 to the end into a record, by the rules for older revisions and formats. False when a failure was reported.
bool Read_Newfile(TextReader& reader, LinkageModel& record = Model);

/// What of a run follows from the values of a file: limits in degrees and radians, and `NSteps`. No screen. Failure 9
/// for a run type or unit system that there is not, 11 for a step of 0, 6 for more steps than an integer holds.
void Derive_Limits_From_File(LinkageModel& record);

/// The values in `Model` have been changed as if a file had held them: it becomes that model.
void Enter_As_From_File();

/// Asks whether to save what a reset would lose; No, unasked, of a model that is not modified.
platform::Answer Ask_To_Keep();
/// Offers to save results that an opened or imported file would replace; the dialog comes twice, saved or not. False
/// when the user would rather not go on.
bool May_Replace(platform::Screen& home);
/// The same as the desktop's session ends; here the dialog comes once.
bool May_End_Session(platform::Screen& home);

/// The file menu's actions, each a handler of the home screen.
void Menu_Open(platform::Screen& home);
/// The same for a file that is known already.
void Open_Model_File(platform::Screen& home, const std::string& path);
void Menu_Save(platform::Screen& home);
void Menu_Saveas(platform::Screen& home);

}  // namespace verlink
