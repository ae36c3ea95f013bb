// Which archives are whole: made by hand, entry by entry, and spoilt in one place each.
#include "files/whole_zip.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdint>
#include <vector>

namespace verlink::test {

namespace {

std::string Little(std::uint32_t number, int bytes) {
    std::string text;
    for (; bytes-- > 0; number >>= 8U) text += static_cast<char>(number & 0xFFU);
    return text;
}

/// An entry, and what is wrong with it.
struct Entry {
    std::string text;
    std::uint32_t method = 8, signature = 0x04034b50, size_off = 0, sum_off = 0, packed_off = 0;
    std::string local_extra{}, extra{}, remark{};
    std::string name = "a.xml";
};

std::string Deflated(const std::string& text) {
    z_stream stream{};
    deflateInit2(&stream, 9, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    std::string packed(text.size() + 100, '\0'), from = text;
    stream.next_in = reinterpret_cast<Bytef*>(from.data());
    stream.avail_in = static_cast<uInt>(from.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

/// As the format has it: each entry behind its head, then the directory, then where that is.
std::string Archive(const std::vector<Entry>& entries, const std::string& between = "") {
    std::string archive, directory;
    for (const Entry& entry : entries) {
        const std::string packed = Deflated(entry.text);
        const auto sum = static_cast<std::uint32_t>(
            crc32(0, reinterpret_cast<const Bytef*>(entry.text.data()), static_cast<uInt>(entry.text.size())));
        const auto place = static_cast<std::uint32_t>(archive.size());
        const std::string facts = Little(entry.method, 2) + std::string(4, '\0') + Little(sum + entry.sum_off, 4) +
                                  Little(static_cast<std::uint32_t>(packed.size()) + entry.packed_off, 4) +
                                  Little(static_cast<std::uint32_t>(entry.text.size()) + entry.size_off, 4) +
                                  Little(static_cast<std::uint32_t>(entry.name.size()), 2);
        archive += Little(entry.signature, 4) + std::string(4, '\0') + facts +
                   Little(static_cast<std::uint32_t>(entry.local_extra.size()), 2) + entry.name + entry.local_extra +
                   packed;
        directory += Little(0x02014b50, 4) + std::string(6, '\0') + facts +
                     Little(static_cast<std::uint32_t>(entry.extra.size()), 2) +
                     Little(static_cast<std::uint32_t>(entry.remark.size()), 2) + std::string(8, '\0') +
                     Little(place, 4) + entry.name + entry.extra + entry.remark;
    }
    const auto begins = static_cast<std::uint32_t>(archive.size());
    const auto count = static_cast<std::uint32_t>(entries.size());
    return archive + directory + between + Little(0x06054b50, 4) + std::string(4, '\0') + Little(count, 2) +
           Little(count, 2) + Little(static_cast<std::uint32_t>(directory.size()), 4) + Little(begins, 4) +
           std::string(2, '\0');
}

bool Whole(const std::string& xml) { return Is_Whole_Zip_Of_Xml(Archive({{.text = xml}})); }

}  // namespace

TEST(Whole_Zip, HasTextsWhoseRootIsClosed) {
    for (const char* xml :
         {"<a>text</a>", "<a/>", "<a b=\"c\"/>", "<?xml version=\"1.0\"?>\n<a><b/></a>\n",
          "<?xml?><?more?><a\tb=\"c\"></a> \t\r\n", "<a\n></a>", "<a\r></a>", "<a ><b></b></a>", "<a/> "})
        EXPECT_TRUE(Whole(xml)) << xml;
    for (const char* xml : {"", " ", "text", "text/", "<?xml?>", "<?xml?>/", "<?", "<a", "<a>", "<a><b/>", "<a><b></b>",
                            "<a></b>", "<a></a>x", "<a></a", "<a/>x", "<a></a><b/>", "<ab></b>", "<"})
        EXPECT_FALSE(Whole(xml)) << xml;
}

TEST(Whole_Zip, HasAsManyEntriesAsItSaysEachAsLongAndOfThatSum) {
    const Entry good{.text = "<root>0123456789</root>"};
    EXPECT_TRUE(Is_Whole_Zip_Of_Xml(Archive({good, {.text = "<b/>", .name = "another/name.xml"}, good})));
    const auto with = [&](auto change) {
        Entry entry = good;
        change(entry);
        const bool alone = Is_Whole_Zip_Of_Xml(Archive({entry}));
        EXPECT_EQ(Is_Whole_Zip_Of_Xml(Archive({good, entry, good})), alone);
        return alone;
    };
    EXPECT_TRUE(with([](Entry& e) { e.local_extra = "more"; }));
    EXPECT_TRUE(with([](Entry& e) { e.extra = "of its own"; }));
    EXPECT_TRUE(with([](Entry& e) { e.remark = "said of it"; }));
    EXPECT_TRUE(with([](Entry& e) { e.name = std::string(300, 'n'); }));
    EXPECT_FALSE(with([](Entry& e) { e.method = 0; }));
    EXPECT_FALSE(with([](Entry& e) { e.method = 9; }));
    EXPECT_FALSE(with([](Entry& e) { e.signature ^= 0x01000000; }));
    EXPECT_FALSE(with([](Entry& e) { e.size_off = 1; }));
    EXPECT_FALSE(with([](Entry& e) { e.size_off = 0U - 1; }));
    EXPECT_FALSE(with([](Entry& e) { e.packed_off = 0U - 1; }));
    EXPECT_FALSE(with([](Entry& e) { e.sum_off = 1; }));
    EXPECT_FALSE(with([](Entry& e) { e.sum_off = 0x01000000; }));
    EXPECT_FALSE(with([](Entry& e) { e.text = "<root>"; }));
    EXPECT_FALSE(Is_Whole_Zip_Of_Xml(Archive({}))) << "none at all";
    EXPECT_FALSE(Is_Whole_Zip_Of_Xml(Archive({good}, "x"))) << "something behind the directory";
}

TEST(Whole_Zip, IsNoneWithAByteOfItsDirectoryOrItsEndChanged) {
    const std::string whole = Archive({{.text = "<root>0123456789</root>"}});
    const std::size_t end = whole.size() - 22, directory = end - 46 - 5;
    // Signature, method, sum, size and place of the entry; signature, count and place at the end.
    for (const auto& [from, count] :
         {std::pair(directory, 4), std::pair(directory + 10, 2), std::pair(directory + 16, 4),
          std::pair(directory + 24, 4), std::pair(directory + 42, 4), std::pair(end, 4), std::pair(end + 10, 2),
          std::pair(end + 16, 4)})
        for (int i = 0; i < count; ++i) {
            std::string broken = whole;
            char& byte = broken[from + static_cast<std::size_t>(i)];
            byte = static_cast<char>(byte ^ (i < 3 ? 0x40 : 1));  // a size that memory holds
            EXPECT_FALSE(Is_Whole_Zip_Of_Xml(broken)) << from + static_cast<std::size_t>(i) - directory;
        }
    for (std::size_t cut = 1; cut <= whole.size(); cut += cut < 30 ? 1 : 7)
        EXPECT_FALSE(Is_Whole_Zip_Of_Xml(whole.substr(0, whole.size() - cut))) << cut;
}

}  // namespace verlink::test
