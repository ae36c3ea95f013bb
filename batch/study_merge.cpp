// How parts of a study are told, and put together.
#include <fcntl.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "batch/exchange.h"
#include "batch/study.h"
#include "batch/study_file.h"
#include "batch/study_summary.h"
#include "platform/failure.h"
#include "platform/file_system.h"

namespace verlink {

namespace {

constexpr char kBegin[] = "# study ", kEnd[] = "# end of shard ", kNoPart[] = " is no part of a study";

/// What the first lines of a part say of it.
struct Part {
    std::string path, begin, head;
    std::uint64_t shard, shards;

    std::string Study() const { return begin.substr(0, begin.find(", shard ")); }
    std::string All() const { return begin.substr(begin.rfind(" of ")); }
    std::string End() const { return kEnd + std::to_string(shard) + "/" + std::to_string(shards); }
    std::string Head() const { return begin + '\n' + head + '\n'; }
};

/// False for what begins as no part does.
bool Read_Part(const std::string& path, Part& part) {
    constexpr std::size_t kEnough = std::size_t{1} << 20U;
    std::istringstream text(platform::Read_Beginning(path, kEnough));
    part.path = path;
    std::getline(text, part.begin);
    if (!std::getline(text, part.head) || text.eof() || !part.begin.starts_with(kBegin)) return false;
    const auto place = part.begin.find(", shard ");
    if (place == std::string::npos || part.begin.rfind(" of ") == std::string::npos) return false;
    const char* at = part.begin.data() + place + 8;
    const char* end = part.begin.data() + part.begin.size();
    const auto shard = std::from_chars(at, end, part.shard);
    if (shard.ec != std::errc() || shard.ptr == end || *shard.ptr != '/') return false;
    return std::from_chars(shard.ptr + 1, end, part.shards).ec == std::errc() && part.shard >= 1;
}

std::string Shard(std::uint64_t shard, std::uint64_t shards) {
    return "shard " + std::to_string(shard) + "/" + std::to_string(shards);
}

/// In the order of their shards; the fault when they are not all of one study.
std::string Sort_And_Check(std::vector<Part>& parts) {
    std::ranges::sort(parts, {}, &Part::shard);
    const Part& first = parts.front();
    for (std::size_t i = 1; i < parts.size(); ++i) {
        const Part& part = parts[i];
        if (part.Study() != first.Study() || part.shards != first.shards || part.All() != first.All() ||
            part.head != first.head)
            return part.path + " is of another study than " + first.path;
        if (part.shard == parts[i - 1].shard)
            return part.path + " and " + parts[i - 1].path + " are both " + Shard(part.shard, part.shards);
    }
    for (std::size_t i = 0; i < first.shards; ++i)
        if (i >= parts.size() || parts[i].shard != i + 1)
            return Shard(i + 1, first.shards) + " is missing: " + std::to_string(parts.size()) + " of " +
                   std::to_string(first.shards) + " parts are there";
    return {};
}

/// Copies the rows of a part whose last line has been seen, block by block; false where they are not all there any
/// more.
bool Append(const Part& part, std::uint64_t bytes, Row_File& out) {
    std::ifstream in(part.path, std::ios::binary);
    std::uint64_t left = bytes - part.Head().size();
    in.seekg(static_cast<std::streamoff>(part.Head().size()));
    std::string block;
    while (left > 0 && in) {
        block.resize(std::min<std::uint64_t>(left, std::uint64_t{1} << 20U));
        in.read(block.data(), static_cast<std::streamsize>(block.size()));
        block.resize(static_cast<std::size_t>(in.gcount()));
        out.Add(block);
        left -= block.size();
    }
    return left == 0;
}

/// The lines between the head and the end of a part that is small.
std::vector<std::string> Lines_Of(const Part& part) {
    const std::string text = platform::Read_File(part.path);
    std::vector<std::string> lines;
    for (std::size_t at = part.Head().size(), end; (end = text.find('\n', at)) != std::string::npos; at = end + 1)
        lines.push_back(text.substr(at, end - at));
    lines.pop_back();  // its end
    return lines;
}

std::string Broken_Off(const Part& part) { return part.path + " breaks off: run its shard again"; }

/// Rows one after the other, or summaries put together; the fault of a part that is none.
std::string Put_Together(const std::vector<Part>& parts, const std::vector<std::uint64_t>& bytes,
                         const std::string& out, std::string& at) {
    if (!Is_Summary(parts.front().head)) {
        at = out + " cannot be written: ";
        Row_File file(out, parts.front().head + '\n');
        for (std::size_t i = 0; i < parts.size(); ++i)
            if (!Append(parts[i], bytes[i], file)) return Broken_Off(parts[i]);
        file.Close();
        return {};
    }
    std::optional<study::Summary> summary;
    for (const Part& part : parts)
        if (!Take_Summary(Lines_Of(part), summary)) return part.path + kNoPart;
    at = out + " cannot be written: ";
    platform::Write_File(out, Summary_Csv(Measures_Of(parts.front().head), *summary));
    return {};
}

}  // namespace

Part_Lines Lines_Of_Part(std::uint64_t study, std::uint64_t shard, std::uint64_t shards, std::uint64_t all) {
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(study));
    return {kBegin + std::string(digits.data()) + ", " + Shard(shard, shards) + " of " + std::to_string(all) +
                " linkages\n",
            kEnd + std::to_string(shard) + "/" + std::to_string(shards) + "\n"};
}

int Merge_Parts(const std::vector<std::string>& paths, const std::string& out, std::ostream& err) {
    const auto refuse = [&](const std::string& fault) {
        err << "verlink-batch: " << fault << '\n';
        return 1;
    };
    std::string at;
    try {
        std::vector<Part> parts;
        for (const std::string& path : paths) {
            at = path + " cannot be read: ";
            if (!Read_Part(path, parts.emplace_back())) return refuse(path + kNoPart);
        }
        const std::string fault = Sort_And_Check(parts);
        if (!fault.empty()) return refuse(fault);
        std::vector<std::uint64_t> bytes;
        for (const Part& part : parts) {
            at = part.path + " cannot be read: ";
            const Rows_There there = Look_At_Rows(part.path, part.Head(), part.End());
            if (there.state != Rows_There::State::kWhole) return refuse(Broken_Off(part));
            bytes.push_back(there.bytes);
        }
        const std::string broken = Put_Together(parts, bytes, out, at);
        return broken.empty() ? 0 : refuse(broken);
    } catch (const platform::RuntimeFailure& failure) {
        return refuse(at + Why(failure));
    }
}

}  // namespace verlink
