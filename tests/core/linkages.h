// Linkages, limits and results, for the tests of the engine.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "core/runs.h"
#include "tests/support/fixture.h"

namespace verlink::test {

/// Expects the failure of that number from the statement.
#define EXPECT_FAILURE(number, statement)                                     \
    try {                                                                     \
        statement;                                                            \
        ADD_FAILURE() << "no failure from " #statement;                       \
    } catch (const verlink::platform::RuntimeFailure& failure) {              \
        EXPECT_EQ(failure.Number(), static_cast<long>(number)) << #statement; \
    }

/// The message of the failure reporter for a number without advice.
inline std::string Report(long number, const std::string& description, const std::string& procedure) {
    return "Error " + std::to_string(number) + "   (" + description + ")  has occurred in " + procedure + "\r\n\r\n";
}

inline void Take_Lengths(double L1, double L2, double L3, double L4) {
    Model.L1 = L1;
    Model.L2 = L2;
    Model.L3 = L3;
    Model.L4 = L4;
    Model.Link1X = L1;
    Model.Link1Y = 0;
    LoadLinkArray();
}

inline void Take_Coupler_Point(double Rpa, double Delta) {
    Model.Rpa = Rpa;
    Model.Delta = Delta;
    Set_Delta(Model.Delta, Model.DeltaRad, Model.DeltaStr);
    LoadLinkArray();
}

inline void Take_Circuit(int index) {
    Model.CircuitIndex = index;
    Set_Circuit(Model.CircuitIndex, Model.CircuitSign, Model.CircuitName);
}

inline void Turn_Ground(double degrees) {
    Model.Link1Angle = degrees;
    Model.Link1AngleRad = degrees * kDegToRad;
}

/// Limits of an angle run, degrees, as the input layer makes them.
inline void Take_Angles(double start, double end, double step) {
    Model.Calctype = 3;
    Model.ThetaStart = start;
    Model.ThetaEnd = end;
    Model.ThetaStep = step;
    Model.ThetaStartRad = start * kDegToRad;
    Model.ThetaEndRad = end * kDegToRad;
    Model.ThetaStepRad = step * kDegToRad;
    Model.NSteps = Steps_Of(Model.ThetaStartRad, Model.ThetaEndRad, Model.ThetaStepRad);
}

/// A crank-rocker on the open circuit, with an angle run over a full turn.
inline void Take_Crank_Rocker() {
    Model.ModuloMode = "abs";
    Model.Omega2Input = Model.Omega2 = 10;
    Take_Lengths(2.667, 1.115, 2.5, 2.5);
    Take_Coupler_Point(1.697, -92.66);
    Take_Circuit(1);
    Turn_Ground(0);
    Take_Angles(45, 405, 10);
}

/// Takes the desktop's place for a while: notes the messages and gives every one the same answer.
class Notes {
    struct Way_Back {
        ScriptedDesktop& desktop;
        ~Way_Back() { platform::Use_Desktop(&desktop); }
    };
    struct Desktop : ScriptedDesktop {
        platform::Answer Show_Message(const platform::Message& message) override {
            messages.push_back(message);
            return answer;
        }
        std::vector<platform::Message> messages;
        platform::Answer answer = platform::Answer::kOk;
    };

   public:
    explicit Notes(ScriptedDesktop& desktop, platform::Answer answer = platform::Answer::kOk) : way_back_{desktop} {
        desktop_.answer = answer;
    }
    const std::vector<platform::Message>& Messages() const { return desktop_.messages; }

   private:
    Way_Back way_back_;
    Desktop desktop_;
};

/// A hash (FNV-1a) over the bits of a run's results.
class ResultHash {
   public:
    void Add_Run() {
        const auto& table = Model.RunTable;
        for (int step = 0; step <= Model.NSteps; ++step) {
            Add(table.Assembled(step) ? 1u : 0u);
            Add_Rows(table.Theta, step, 4, 1);
            Add_Rows(table.Omega, step, 3, 1);
            Add_Rows(table.Alpha, step, 3, 1);
            Add_Rows(table.PointXY, step, 3, 2);
            Add_Rows(table.VelXY, step, 3, 2);
            Add_Rows(table.AccXY, step, 5, 2);
            Add_Rows(table.OmegaRatio, step, 1, 1);
            Add_Rows(table.MechAdvantage, step, 1, 1);
            Add_Rows(table.FixedCentrode, step, 1, 2);
            Add_Rows(table.MovingCentrode, step, 1, 2);
        }
    }
    std::uint64_t Value() const { return hash_; }

   private:
    template <class Column>
    void Add_Rows(const Column& column, int step, int rows, int axes) {
        for (int row = 0; row < rows; ++row)
            for (int axis = 0; axis < axes; ++axis)
                Add(std::bit_cast<std::uint32_t>(static_cast<float>(column(step, row, axis))));
    }
    void Add(std::uint32_t bits) {
        for (int shift = 0; shift < 32; shift += 8) {
            hash_ ^= (bits >> shift) & 0xFFu;
            hash_ *= 0x100000001B3u;
        }
    }
    std::uint64_t hash_ = 0xCBF29CE484222325u;
};

}  // namespace verlink::test
