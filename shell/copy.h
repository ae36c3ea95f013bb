// A copy of a model that was not saved: how it lies in a file, and the worker that keeps it fresh.
#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "files/model_file.h"
#include "files/task_file.h"
#include "platform/process.h"

namespace verlink {

/// What a copy tells.
struct Model_Copy {
    std::string path;     ///< the model's file, or the folder for it
    std::string name;     ///< of the model
    std::string content;  ///< as its file would hold it
    std::string tasks;    ///< as the file beside it would hold them
    std::chrono::system_clock::time_point changed;
};

/// A model as it is handed over for a copy; its text is made where the copy is.
struct Model_To_Copy {
    std::string path, name;
    File_Snapshot file;
    Tasks tasks;
    std::chrono::system_clock::time_point changed;
};

std::string Copy_Text(const Model_Copy& copy);
/// Nothing for a text that is no copy.
std::optional<Model_Copy> Copy_Of(std::string_view text);

/// A copy that an ended process left.
struct Left_Copy {
    std::string file;
    Model_Copy copy;
};

/// The file of a process's copy, in the program's state folder.
std::string Copy_File(const std::string& folder, const platform::Process& process);
/// Those of ended processes, the newest first.
std::vector<Left_Copy> Left_Copies(const std::string& folder);

/// How long ago that was, in words: "3 minutes ago".
std::string Age_In_Words(std::chrono::system_clock::duration age);

/// Writes a file anew and anew from a thread of its own, whole each time. The first text after a rest is written at
/// once, later ones at most every `pause`; of several that came meanwhile only the newest. What cannot be written is
/// tried again. No call but `Flush` waits for the disk.
class Copy_Keeper {
   public:
    explicit Copy_Keeper(std::string file, std::chrono::milliseconds pause = std::chrono::milliseconds(400));
    /// What was to be written is, or has failed.
    ~Copy_Keeper();
    Copy_Keeper(const Copy_Keeper&) = delete;
    Copy_Keeper& operator=(const Copy_Keeper&) = delete;

    void Keep(Model_To_Copy model);
    /// No file is to be there.
    void Drop();
    /// Whatever was said so far is done, or has failed, or `patience` is over. True when it is done.
    bool Flush(std::chrono::milliseconds patience = std::chrono::seconds(5));
    /// From now on `Keep` and `Drop` do nothing.
    void Freeze();

   private:
    using Wish = std::shared_ptr<const Model_To_Copy>;  ///< null: no file
    void Ask(Wish wish);
    void Work();
    bool Do(const Wish& wish) const;

    const std::string file_;
    const std::chrono::milliseconds pause_;
    std::mutex mutex_;
    std::condition_variable asked_, done_;
    Wish wish_;
    bool fresh_ = true;   ///< the file is as was wished
    bool hurry_ = false;  ///< a flush waits for a try that has not begun
    bool frozen_ = false;
    bool ending_ = false;
    bool failed_ = false;  ///< the last try, and no flush waits for another
    std::thread worker_;   ///< last, as it uses all of them
};

}  // namespace verlink
