// What a value-token parser stored and printed, for the tables of the value
// token tests.
#pragma once

#include "gvutil/cli.h"
#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace clitest {

using Pairs = std::vector<std::pair<int, int>>;

struct Parsed {
    Pairs ranges;
    std::string printed;
};

// parse(value_range *out, cli_ctx *ctx) answers the number of ranges it
// stored; a quiet call gets no context.
template <typename Parse> Parsed ranges_of(Parse parse, bool quiet = false) {
    gvtest::CliCapture capture;
    value_range out[16] = {};
    const int count = parse(out, quiet ? nullptr : capture.ctx());
    Parsed got{{}, capture.text()};
    for (int i = 0; i < count; ++i) {
        got.ranges.emplace_back(out[i].low, out[i].high);
    }
    return got;
}

using TokenParser = int (*)(const char *, value_range *, int, cli_ctx *);

inline Parsed ranges_of(TokenParser parser, const char *text, int max, bool quiet = false) {
    return ranges_of([&](value_range *out, cli_ctx *ctx) { return parser(text, out, max, ctx); },
                     quiet);
}

struct Case {
    const char *text;
    Pairs ranges;
    std::string printed;
};

inline void expect_cases(TokenParser parser, int max, const std::vector<Case> &cases,
                         bool quiet = false) {
    for (const Case &c : cases) {
        const Parsed got = ranges_of(parser, c.text, max, quiet);
        EXPECT_EQ(got.ranges, c.ranges) << c.text;
        EXPECT_EQ(got.printed, c.printed) << c.text;
    }
}

} // namespace clitest
