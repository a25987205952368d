#include "support/cli_capture.h"

#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdio>
#include <vector>

namespace gvtest {

CliCapture::CliCapture() : ctx_{record, this} {}

std::string CliCapture::take() {
    std::string printed;
    printed.swap(text_);
    return printed;
}

int CliCapture::record(void *arg, const char *format, ...) {
    auto *self = static_cast<CliCapture *>(arg);
    va_list args;
    va_start(args, format);
    va_list again;
    va_copy(again, args);
    const int length = std::vsnprintf(nullptr, 0, format, args);
    va_end(args);
    std::vector<char> text(static_cast<std::size_t>(length > 0 ? length : 0) + 1);
    std::vsnprintf(text.data(), text.size(), format, again);
    va_end(again);
    self->text_.append(text.data());
    return length;
}

void expect_rows(const ParseCall &call, const std::vector<ParseRow> &rows, Context context) {
    for (const ParseRow &row : rows) {
        if (context != Context::kNone) {
            CliCapture capture;
            EXPECT_EQ(call(row.text, capture.ctx()), row.stored) << row.text;
            EXPECT_EQ(capture.text(), row.printed) << row.text;
        }
        if (context != Context::kRecording) {
            EXPECT_EQ(call(row.text, nullptr), row.stored) << row.text << " (quiet)";
        }
    }
}

ParseCall value_token(int (*parser)(const char *, value_range *, int, cli_ctx *), int max) {
    return [parser, max](const char *text, cli_ctx *ctx) {
        value_range out[64] = {};
        return shown(out, parser(text, out, max, ctx));
    };
}

ParseCall value_list(int (*parser)(const char *, uint32_t *, int, cli_ctx *), int max) {
    return [parser, max](const char *text, cli_ctx *ctx) {
        uint32_t out[256] = {};
        return shown(out, parser(text, out, max, ctx));
    };
}

} // namespace gvtest
