// Follows a linkage from its first position by Newton's method on the loop, knowing nothing of how it was found.
#pragma once

#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "design/search.h"

namespace verlink::test {

class Follower {
   public:
    explicit Follower(const design::FourBar& linkage) {
        const auto single = [](double x) { return static_cast<double>(static_cast<float>(x)); };
        const auto length = [&](design::Point a, design::Point b) {
            return single(std::hypot((a - b).real(), (a - b).imag()));
        };
        O2_ = linkage.crank.fixed;
        l1_ = length(linkage.crank.fixed, linkage.other.fixed);
        l2_ = length(linkage.crank.fixed, linkage.crank.moving);
        l3_ = length(linkage.crank.moving, linkage.other.moving);
        l4_ = length(linkage.other.fixed, linkage.other.moving);
        rpa_ = length(linkage.crank.moving, linkage.coupler);
        ground_ = std::arg(linkage.other.fixed - linkage.crank.fixed);
        th2_ = std::arg(linkage.crank.moving - linkage.crank.fixed);
        th3_ = first_ = std::arg(linkage.other.moving - linkage.crank.moving);
        th4_ = std::arg(linkage.other.moving - linkage.other.fixed);
        delta_ = std::arg(linkage.coupler - linkage.crank.moving) - th3_;
        side_ = Side();
    }

    /// What is wrong on the way through the positions, with the crank turning to the left (+1) or right (-1); empty for
    /// nothing. Where the crank is to be at each follows from where the body carries the joint A.
    std::string Through(const std::vector<design::Place>& places, const design::FourBar& linkage, double way) {
        const double size = std::max({l1_, l2_, l3_, l4_, rpa_});
        double turned = 0;
        for (std::size_t i = 0; i < places.size(); ++i) {
            const double body = (places[i].angle - places[0].angle) * std::numbers::pi / 180;
            const auto joint = places[i].at + (linkage.crank.moving - places[0].at) * std::polar(1.0, body);
            double turn = way * std::remainder(std::arg(joint - O2_) - th2_, 2 * std::numbers::pi);
            if (i > 0 && turn <= 0) turn += 2 * std::numbers::pi;
            turned += turn;
            if (turned > 2 * std::numbers::pi) return "more than a turn before position " + std::to_string(i + 1);
            if (!Go(way * turn)) return "lost before position " + std::to_string(i + 1);
            const auto P = O2_ + std::polar(l2_, th2_) + std::polar(rpa_, th3_ + delta_);
            const double off = std::abs(P - places[i].at) / size;
            const double askew = std::abs(std::remainder(th3_ - first_ - body, 2 * std::numbers::pi));
            if (off > kSingle || askew > kSingle)
                return "position " + std::to_string(i + 1) + " is missed by " + std::to_string(off) + ", " +
                       std::to_string(askew);
        }
        return "";
    }

   private:
    static constexpr double kSingle = 4e-5;

    bool Side() const { return std::sin(th4_ - th3_) > 0; }

    /// In steps that turn no link by much: where links 3 and 4 are nearly in line a small one of the crank would leap
    /// to the other branch.
    bool Go(double turn) {
        constexpr double kStep = 0.01, kLeast = 1e-7, kMuch = 0.05;
        double gone = 0, step = kStep;
        while (gone < std::abs(turn)) {
            const double th2 = th2_, th3 = th3_, th4 = th4_;
            const double next = std::min(gone + step, std::abs(turn));
            th2_ += std::copysign(next - gone, turn);
            if (Close() && Side() == side_ && std::abs(th3_ - th3) < kMuch && std::abs(th4_ - th4) < kMuch) {
                gone = next;
                step = std::min(kStep, 2 * step);
                continue;
            }
            th2_ = th2, th3_ = th3, th4_ = th4;
            step /= 2;
            if (step < kLeast) return false;
        }
        return true;
    }

    bool Close() {
        for (int i = 0; i < 60; ++i) {
            const auto gap =
                std::polar(l2_, th2_) + std::polar(l3_, th3_) - std::polar(l4_, th4_) - std::polar(l1_, ground_);
            // d gap = i l3 e^(i th3) d3 - i l4 e^(i th4) d4
            const double a = -l3_ * std::sin(th3_), b = l4_ * std::sin(th4_), c = l3_ * std::cos(th3_),
                         d = -l4_ * std::cos(th4_);
            const double determinant = a * d - b * c;
            if (determinant == 0) return false;
            double d3 = -(gap.real() * d - b * gap.imag()) / determinant;
            double d4 = -(a * gap.imag() - c * gap.real()) / determinant;
            const double longest = std::max(std::abs(d3), std::abs(d4));
            if (longest > 0.2) d3 *= 0.2 / longest, d4 *= 0.2 / longest;
            th3_ += d3;
            th4_ += d4;
            if (longest < 1e-12) return true;
        }
        return false;
    }

    design::Point O2_;
    double l1_, l2_, l3_, l4_, rpa_, ground_, delta_, th2_, th3_, th4_, first_;
    bool side_;
};

}  // namespace verlink::test
