// What counts of a model, packed, and what it is compared with.
#include "files/in_hand.h"

#include <algorithm>
#include <utility>

#include "files/model_file.h"

namespace verlink {

namespace {

std::shared_ptr<Document>& In_Hand() {
    static auto document = std::make_shared<Document>();
    return document;
}

std::function<void(Hand)>& Watch() {
    static std::function<void(Hand)> watch;
    return watch;
}

void Tell_Watch(Hand hand) {
    if (Watch()) Watch()(hand);
}

class Packer {
   public:
    explicit Packer(std::string& packed) : packed_(packed) {}
    void operator()(const std::string* text) const {
        const std::size_t length = text->size();
        Append(&length, sizeof length);
        packed_ += *text;
    }
    template <class Value>
    void operator()(const Value* value) const {
        // As numbers: a zero has no sign here.
        const double number = double(*value) + 0.0;
        Append(&number, sizeof number);
    }

   private:
    void Append(const void* bytes, std::size_t count) const { packed_.append(static_cast<const char*>(bytes), count); }
    std::string& packed_;
};

bool Is_Counted(const FileField& field, int mode) {
    switch (field.counts) {
        case Counts::kNo: return false;
        case Counts::kByAngle: return mode == run::kByAngle;
        case Counts::kByTime: return mode != run::kByAngle;
        default: return true;
    }
}

}  // namespace

std::string What_Counts() {
    std::string packed;
    const Packer pack(packed);
    const LinkageModel& m = Model;
    for (const FileField& field : File_Fields())
        if (Is_Counted(field, m.Calctype)) std::visit(pack, field.place);
    const int last = std::min<int>(m.NSteps, kLastStep);
    const RunResults& table = m.RunTable;
    for (int step = 0; m.Imported() && step <= last; ++step) {
        pack(&table.DriveTheta(step));
        pack(&table.Omega(step, 0));
        pack(&table.Alpha(step, 0));
    }
    for (int step = 0; m.TorqueImported && step <= last; ++step) pack(&table.ImportedTorque(step));
    pack(&m.DesignTask);
    pack(&m.StudySettings);
    return packed;
}

bool Modified() { return In_Hand()->kept != What_Counts(); }

void Model_Came() {
    In_Hand() = std::make_shared<Document>();
    In_Hand()->kept = What_Counts();
    Tell_Watch(Hand::kCame);
}

void Model_Came_Unsaved() {
    In_Hand() = std::make_shared<Document>();
    Tell_Watch(Hand::kCame);
}

void Model_Kept() {
    In_Hand()->kept = What_Counts();
    ++In_Hand()->times_kept;
    Tell_Watch(Hand::kKept);
}

void Model_Follows(const std::string& counted_before) {
    if (In_Hand()->kept == counted_before) In_Hand()->kept = What_Counts();
}

std::function<void(Hand)> Watch_Hand(std::function<void(Hand)> whoever) {
    return std::exchange(Watch(), std::move(whoever));
}

std::shared_ptr<Document> Document_In_Hand() { return In_Hand(); }

void Take_In_Hand(std::shared_ptr<Document> document) { In_Hand() = std::move(document); }

}  // namespace verlink
