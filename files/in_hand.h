// Which model is in hand, and whether it is another than was last saved or opened.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace verlink {

/// What of the model counts as its own, of all that its file and the one of its tasks hold. Two models of the same text
/// are the same model.
std::string What_Counts();

/// A model from its coming on: opened, begun anew, or found as the program started.
struct Document {
    std::string kept;    ///< what counted when it was last saved, opened or begun; empty for what never lay in a file
    int times_kept = 0;  ///< how often it was saved
    std::string tasks;   ///< what its file of tasks holds, as it was last read or written
    std::string tasks_left;  ///< the path of one that could not be read, and stays as it is
};

/// The model in hand differs from what was last saved or opened.
bool Modified();

/// Another model has come into hand as it stands: opened or begun anew.
void Model_Came();
/// A model that lies in no file has come: it is modified from the beginning.
void Model_Came_Unsaved();
/// The model in hand lies in its file as it stands.
void Model_Kept();
/// What has changed by itself is no modification of a model that had none.
void Model_Follows(const std::string& counted_before);

enum class Hand { kCame, kKept };
/// Hears of each; there is one who does. What it gives back is who did before.
std::function<void(Hand)> Watch_Hand(std::function<void(Hand)> watch);

/// The one in hand, and another one in its place, as undo brings it back.
std::shared_ptr<Document> Document_In_Hand();
void Take_In_Hand(std::shared_ptr<Document> document);

}  // namespace verlink
