// The program's desktop in Qt.
#pragma once

#include <QString>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "desktop/button.h"
#include "desktop/window_order.h"
#include "platform/desktop_services.h"

class QEventLoop;
class QPrinter;

namespace verlink::desktop {

class Form;

class QtDesktop : public platform::Desktop {
   public:
    QtDesktop();
    ~QtDesktop() override;

    /// The window of a screen, made on first use.
    Form& formOf(platform::Screen& screen);
    /// Destroys all windows; comes before the screens are destroyed.
    void discardForms();

    platform::Answer Show_Message(const platform::Message& message) override;
    std::optional<std::string> Ask_Open_File(const platform::FileDialog& dialog) override;
    std::optional<std::string> Ask_Save_File(const platform::FileDialog& dialog) override;
    bool Ask_Printer() override;
    void Print_Screen(platform::Screen& screen) override;
    void Print_Pages(const std::vector<std::vector<std::string>>& pages) override;
    void Show_Window(platform::Screen& screen) override;
    void Hide_Window(platform::Screen& screen) override;
    void Show_Beside(platform::Screen& screen) override;
    void Serve_Events(platform::Screen& screen, const std::function<bool()>& done) override;
    void Set_Pointer(platform::Pointer pointer) override;
    platform::DisplaySize Display() override;
    bool Pause(std::chrono::nanoseconds pause) override;
    std::string Session_User() override;
    std::string Documents_Folder() override;
    std::string State_Folder() override;
    std::string Settings_Folder() override;
    std::string Program_Folder() override;
    std::string Date_Text() override;
    std::string Time_Text() override;
    void Register_File_Type(const platform::FileType& type) override;

   protected:
    void On_Ending() override;

   private:
    struct Showing {
        QEventLoop* loop;
        std::function<bool()> done;
    };

    Form* top() const;
    void chain();
    /// The window or dialog that waits over the window of that number, if it is one of those shown.
    const QWindow* waitingOver(WId window) const;
    void takeAway(Form& form);
    QString startFolder(const platform::FileDialog& dialog) const;
    void endShowings();
    QPrinter& printer();
    QString footOf(bool headed);

    PromptLetters letters_;
    std::map<platform::Screen*, std::unique_ptr<Form>> forms_;
    std::vector<Form*> shown_;   ///< oldest first
    std::vector<Form*> beside_;  ///< what stands beside them
    std::vector<Showing> showings_;
    std::unique_ptr<QPrinter> printer_;
    bool hourglass_ = false;
    KeysToTheTop keys_{[this](WId window) { return waitingOver(window); }};
};

}  // namespace verlink::desktop
