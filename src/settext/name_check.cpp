// Character checks of names typed by the operator.
#include "gvutil/settext.h"

#include <cctype>

namespace {

bool is_name_character(char c) noexcept {
    const auto byte = static_cast<unsigned char>(c);
    return std::isalnum(byte) != 0 || c == '-' || c == '.' || c == '_';
}

template <typename Test> int every_character(const char *text, Test test) noexcept {
    if (text == nullptr) {
        return 0;
    }
    for (; *text != '\0'; ++text) {
        if (!test(static_cast<unsigned char>(*text))) {
            return 0;
        }
    }
    return 1;
}

} // namespace

int check_valid_name(const char *text, int len) noexcept {
    for (int i = 0; i < len; ++i) {
        if (text == nullptr || !is_name_character(text[i])) {
            return 0;
        }
    }
    return 1;
}

int check_alphanum(const char *text) noexcept {
    return every_character(text, [](unsigned char c) noexcept { return std::isalnum(c) != 0; });
}

int check_numeric(const char *text) noexcept {
    return every_character(text, [](unsigned char c) noexcept { return std::isdigit(c) != 0; });
}
