#include "support/cli_capture.h"

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

} // namespace gvtest
