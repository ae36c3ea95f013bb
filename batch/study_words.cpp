// Options become words, and a list is read from its file.
#include "batch/study_words.h"

#include "batch/exchange.h"
#include "platform/file_system.h"
#include "study/words.h"

namespace verlink {

using namespace study;

std::optional<Study> Study_Of(const BatchOptions& options, const LinkageModel& model, std::string& fault) {
    const StudyOptions& written = options.study;
    Words words{.sweeps = written.sweeps,
                .tolerances = written.tolerances,
                .list = {},
                .samples = written.samples.value_or(kSamples),
                .seed = written.seed.value_or(1),
                .measures = written.measures,
                .keeps = written.keeps,
                .local = options.Local(),
                .sweep_called = "--sweep",
                .tolerance_called = "--tolerance"};
    const Design design = Design_Of(model);
    if (written.list) {
        std::string content;
        try {
            content = platform::Read_File(*written.list);
        } catch (const platform::RuntimeFailure& failure) {
            fault = *written.list + " cannot be read: " + Why(failure);
            return std::nullopt;
        }
        if (!Take_List(content, *written.list, design, words.list, fault)) return std::nullopt;
    }
    return study::Study_Of(words, design, fault);
}

}  // namespace verlink
