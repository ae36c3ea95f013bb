// The search: scans what a problem offers, refines the best, and keeps a list of linkages that differ.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "design/problem.h"

namespace verlink::design {

struct Solution {
    FourBar linkage;
    Judgement judgement;
    Genes genes;
    int family = 0;  ///< twins and cognates of one another have the same, and stand together; from 1
};

/// A candidate that does not do it.
struct Thrown_Out {
    FourBar linkage;
    Judgement judgement;
};

struct Found {
    std::vector<Solution> solutions;              ///< the best family first, the best of a family first
    std::vector<Thrown_Out> thrown_out;           ///< some of each refusal
    std::array<std::size_t, kRefusals> counts{};  ///< of judged candidates by refusal
    std::size_t judged = 0;
    bool stopped = false;
    std::string words;  ///< where there are no solutions: why, and what to loosen
};

struct Effort {
    std::size_t best = 20;  ///< solutions wanted
    int threads = 0;        ///< 0 for as many as there are processors
    bool coarse = false;    ///< the first rounds alone, and no descent: for a task that has just changed
    /// No more than so many rounds, for a position that is dragged; 0 for as many as there are.
    std::size_t rounds = 0;
};

/// Told by the calling thread: the part that is done, 0 to 1, and, after each round, what is found so far, else null.
/// False stops, and what is there is given.
using Telling = std::function<bool(double part, const Found* so_far)>;

/// The linkages for a task. Without `stopped` the same task gives the same, whatever the number of threads.
Found Find(const Task& task, const Effort& effort = {}, const Telling& telling = {});

/// The distance of two linkages: the largest between pivots of the same name, and the same with the cranks of one
/// swapped where that is nearer.
double Apart_As_Driven(const FourBar& a, const FourBar& b);
double Apart(const FourBar& a, const FourBar& b);
/// Whether they have the same two links with other cranks, or trace the same coupler curve, as Roberts has it.
bool Twins(const FourBar& a, const FourBar& b, double near);
bool Cognates(const FourBar& a, const FourBar& b, double near);

}  // namespace verlink::design
