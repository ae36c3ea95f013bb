// What the program asks of the desktop around it: messages, dialogs, windows, printing, time and folders.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/screen.h"

namespace verlink::platform {

/// Line ends as the program's texts use them.
inline constexpr char CR[] = "\r";
inline constexpr char CRLF[] = "\r\n";

enum class Icon { kNone, kExclamation, kQuestion, kInformation };
enum class Buttons { kOk, kOkCancel, kYesNo, kRetryCancel, kAbortRetryIgnore };
/// The values are those that a run's result code takes.
enum class Answer { kOk = 1, kCancel = 2, kAbort = 3, kRetry = 4, kIgnore = 5, kYes = 6, kNo = 7 };

/// A modal message. Lines end in CR, LF or CRLF; blanks count.
struct Message {
    std::string text;
    Icon icon = Icon::kNone;
    Buttons buttons = Buttons::kOk;
    int default_button = 1;  ///< 1 is the first
    std::string title = {};  ///< empty: the program's name
};

/// What a file dialog shows. Filters stand as "words|pattern|words|pattern|".
struct FileDialog {
    std::string title;
    std::string filter;
    int filter_index = 1;
    std::string file_name;
    bool warn_before_overwriting = false;
    /// What kind of file it is: "model", "table", "picture", "drive", "torque" or empty. A folder is remembered for
    /// each.
    std::string kind = {};
    std::string folder = {};  ///< the one remembered; empty for none
};

enum class Pointer { kDefault, kHourglass };

/// How the display is measured. `height` and `width` are twips, the pixels are for the aspect ratio.
struct DisplaySize {
    long width;
    long height;
    int width_pixels;
    int height_pixels;
};

/// What a file type is to be known by.
struct FileType {
    std::string type;       ///< "Verlink"
    std::string extension;  ///< "vlk", without a point
    std::string app_path;   ///< the folder of the program
};

/// The two sides of this interface are the toolkit's and the tests'; `verlink-batch` brings a third without screens.
class Desktop {
   public:
    Desktop() = default;
    virtual ~Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    virtual Answer Show_Message(const Message& message) = 0;
    /// The chosen path; nothing when the dialog was cancelled.
    virtual std::optional<std::string> Ask_Open_File(const FileDialog& dialog) = 0;
    virtual std::optional<std::string> Ask_Save_File(const FileDialog& dialog) = 0;
    /// False when cancelled.
    virtual bool Ask_Printer() = 0;
    /// Prints the whole screen as a picture on the printer last asked for, to a PDF where there is none.
    /// Failure 482 when the printer refuses.
    virtual void Print_Screen(Screen& screen) = 0;
    /// Prints pages of text lines likewise, in a font of one width.
    virtual void Print_Pages(const std::vector<std::vector<std::string>>& pages) = 0;

    /// Brings the screen's window up, or to the front, as the one that takes input.
    virtual void Show_Window(Screen& screen) = 0;
    virtual void Hide_Window(Screen& screen) = 0;
    /// Brings up the window of a screen that stands beside the others and takes input while they do, or brings it to
    /// the front.
    virtual void Show_Beside(Screen& screen) { Show_Window(screen); }
    /// Serves events until `done` is true or the process is ending.
    virtual void Serve_Events(Screen& screen, const std::function<bool()>& done) = 0;

    virtual void Set_Pointer(Pointer pointer) = 0;
    virtual DisplaySize Display() = 0;

    /// Lets the time of one frame pass from the end of the last one, painting; a pause of zero returns at once, after
    /// painting. Of the user's hand it takes only what stops a run: Escape, the close button of the window on top, and
    /// its screen's `StopButton`. Then it gives back false, and when the program next waits for the user, the window
    /// closes or the button is clicked.
    [[nodiscard]] virtual bool Pause(std::chrono::nanoseconds pause) = 0;

    virtual std::string Session_User() = 0;      ///< the login name
    virtual std::string Documents_Folder() = 0;  ///< without a separator at its end
    virtual std::string Settings_Folder() = 0;   ///< where settings are kept; empty where none are
    /// The folder for what is to be known at the next start, without a separator at its end; empty for none.
    virtual std::string State_Folder() { return {}; }
    virtual std::string Program_Folder() = 0;  ///< where the program's file lies, without a separator at its end
    virtual std::string Date_Text() = 0;       ///< today, month/day/year
    virtual std::string Time_Text() = 0;       ///< now, hour:minute:second
    /// Makes the file type known to the desktop; does nothing when it is known already. Throws `RuntimeFailure`.
    virtual void Register_File_Type(const FileType& type) = 0;

    /// Ends the process: every showing returns, and nothing more is shown.
    void End_Process() {
        ending_ = true;
        On_Ending();
    }
    bool Ending() const { return ending_; }

   protected:
    virtual void On_Ending() {}

   private:
    bool ending_ = false;
};

/// The desktop in force. There is always one: `Use_Desktop` comes first in every process and test.
Desktop& The_Desktop();
void Use_Desktop(Desktop* desktop);

/// `Show_Message` with the answer dropped.
void Tell(const std::string& text, Icon icon = Icon::kNone);
/// `Show_Message` with Yes and No.
bool Ask_Yes(const std::string& text, Icon icon = Icon::kQuestion);

/// Has the desktop ask for a file to open or to save, from the folder remembered for its kind, and remembers the folder
/// of the answer.
std::optional<std::string> Ask_File(FileDialog dialog, bool save);

/// A file dialog of a screen in the order in which handlers use one: fill, show, read. A cancelled dialog raises
/// failure 32755 and leaves `FileName`.
class CommonDialog : public Control {
   public:
    CommonDialog(Screen& owner, std::string name) : Control(owner, std::move(name), kNoIndex) {}
    std::string DialogTitle;
    std::string Filter;
    int FilterIndex = 1;
    std::string FileName;
    bool OverwritePrompt = false;
    std::string Kind;  ///< as in `FileDialog`
    void ShowOpen();
    void ShowSave();
    void ShowPrinter();

   private:
    void Show(bool save);
};

}  // namespace verlink::platform
