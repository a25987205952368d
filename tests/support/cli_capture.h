// A shell output context that records what the library prints through it.
#pragma once

#include "gvutil/platform.h"

#include <string>

namespace gvtest {

class CliCapture {
  public:
    CliCapture();
    CliCapture(const CliCapture &) = delete;
    CliCapture &operator=(const CliCapture &) = delete;

    // The context to hand to the library; its output function formats each
    // call with vsnprintf and appends the text.
    cli_ctx *ctx() { return &ctx_; }
    const std::string &text() const { return text_; }
    // Answers what was printed since the last call, and forgets it.
    std::string take();

  private:
    static int record(void *arg, const char *format, ...);
    cli_ctx ctx_;
    std::string text_;
};

} // namespace gvtest
