// Mapper/GEM-port lists as ranges per mapper and as GEM indexes.
#include "gvutil/cli.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

using gvtest::CliCapture;
using Triples = std::vector<std::tuple<int, int, int>>;

constexpr int kPer = 8; // GEM ports per mapper

struct Parsed {
    Triples ranges;
    uint32_t errors;
    std::string printed;
};

Parsed mapper_gems(const char *text, uint32_t errors = 0) {
    CliCapture capture;
    mapper_gem_range out[40] = {};
    const int count = get_mapper_gemport_token(text, out, &errors, kPer, capture.ctx());
    Parsed got{{}, errors, capture.text()};
    for (int i = 0; i < count; ++i) {
        got.ranges.emplace_back(out[i].mapper, out[i].first_gem, out[i].last_gem);
    }
    return got;
}

TEST(MapperGemToken, ItemsRangesAndMessages) {
    const struct {
        const char *text;
        Triples ranges;
        uint32_t errors;
        const char *printed;
    } cases[] = {
        {"1/3", {{1, 3, 3}}, 0, ""},
        {"1/3-7", {{1, 3, 7}}, 0, ""}, // the end takes the start's mapper
        {"1/3-1/3", {{1, 3, 3}}, 0, ""},
        {"1/3-3/2", {{1, 3, 8}, {2, 1, 8}, {3, 1, 2}}, 0, ""},
        {"32/8,2/1", {{32, 8, 8}, {2, 1, 1}}, 0, ""},
        {"1/3-1/2", {}, 1, "%Invalid sequence order: 1/3-1/2\n"},
        {"3/1-2/8", {}, 1, "%Invalid sequence order: 3/1-2/8\n"},
        {"5", {}, 1, "%Invalid input parameter: 5\n"},
        {"0/1", {}, 1, "%Invalid input parameter: 0/1\n"},
        {"1/0,2/2", {{2, 2, 2}}, 1, "%Invalid input parameter: 1/0\n"},
        {"1/256", {}, 1, "%Invalid input parameter: 1/256\n"}, // the port is kept in 8 bits
        {"33/1", {}, 1, "%Invalid mapper number range: 33/1\n"},
        {"x/1", {}, 1, "%Invalid mapper number range: x/1\n"},
        {"1/9", {}, 1, "%range error: 1/9 [1/1-8]\n"},
        {"1/x", {}, 1, "%range error: 1/x [1/1-8]\n"},
        {"1/2-9", {}, 1, "%range error: 1/9 [1/1-8]\n"},
        {"1/2-40/1", {}, 1, "%Invalid mapper number range: 40/1\n"},
        {"9/2-4/1,1/1", {{1, 1, 1}}, 1, "%Invalid sequence order: 9/2-4/1\n"},
        {"1/1,,", {{1, 1, 1}}, 0, ""},
    };
    for (const auto &c : cases) {
        const Parsed got = mapper_gems(c.text);
        EXPECT_EQ(got.ranges, c.ranges) << c.text;
        EXPECT_EQ(got.errors, c.errors) << c.text;
        EXPECT_EQ(got.printed, c.printed) << c.text;
    }
    EXPECT_EQ(mapper_gems("33/1,5", 7).errors, 9u); // added to, never reset
    mapper_gem_range out[1];
    EXPECT_EQ(get_mapper_gemport_token("1/1", out, nullptr, kPer, nullptr), 1);
    EXPECT_EQ(get_mapper_gemport_token(nullptr, out, nullptr, kPer, nullptr), 0);
}

std::vector<uint32_t> indexes(const char *text, int max, std::string &printed) {
    CliCapture capture;
    uint32_t out[300] = {};
    const int count = get_mapper_gemport(text, out, max, kPer, capture.ctx());
    printed = capture.text();
    return {out, out + count};
}

TEST(MapperGemport, IndexesOnceEachOrNothing) {
    const struct {
        const char *text;
        int max;
        std::vector<uint32_t> indexes;
        const char *printed;
    } cases[] = {
        {"1/1-3", 256, {1, 2, 3}, ""},
        {"2/1", 256, {9}, ""},
        {"1/7-2/2,1/8", 256, {7, 8, 9, 10}, ""}, // each index once, first-seen order
        {"2/2,1/1-2/3", 256, {10, 1, 2, 3, 4, 5, 6, 7, 8, 9, 11}, ""},
        {"1/1,1/9", 256, {}, "%range error: 1/9 [1/1-8]\n"}, // any error discards the list
        // The message's mapper counts from 0 and the last port of a mapper is 0.
        {"1/1,3/8", 20, {}, "%check if it is suitable parameter : 2/0, 24\n"},
        {"3/5", 20, {}, "%check if it is suitable parameter : 2/5, 21\n"},
        {",", 256, {}, "%Invaild parameter ,\n"},
        {"", 256, {}, "%Invaild parameter \n"},
    };
    for (const auto &c : cases) {
        std::string printed;
        EXPECT_EQ(indexes(c.text, c.max, printed), c.indexes) << c.text;
        EXPECT_EQ(printed, c.printed) << c.text;
    }
    uint32_t out[1];
    EXPECT_EQ(get_mapper_gemport(nullptr, out, 256, kPer, nullptr), 0);
}

// The text the shell prints for a GEM index reads back as that index.
TEST(MapperGemport, PrintedIndexesReadBack) {
    for (int index = 1; index <= 32 * kPer; ++index) {
        char text[32];
        sputil_mk_string_from_int_gemport(index, text, sizeof text, kPer);
        std::string printed;
        EXPECT_EQ(indexes(text, 32 * kPer, printed), std::vector<uint32_t>{uint32_t(index)})
            << text;
        EXPECT_EQ(printed, "");
    }
}

} // namespace
