// Small conversions the shell and the agent share: decimal text, reversed
// text, file names and minute/second arithmetic.
#include "gvutil/sys.h"

#include <cstring>

namespace {

constexpr int kReverseWork = 264;

} // namespace

// Digits least significant first, the sign, then the whole text reversed.
// The magnitude is taken without negating, so INT_MIN prints too.
void itoa(int value, char *out) noexcept {
    if (out == nullptr) {
        return;
    }
    int length = 0;
    int rest = value;
    do {
        const int digit = rest % 10;
        out[length++] = static_cast<char>('0' + (digit < 0 ? -digit : digit));
        rest /= 10;
    } while (rest != 0);
    if (value < 0) {
        out[length++] = '-';
    }
    out[length] = '\0';
    reverse(out);
}

void reverse(char *text) noexcept {
    if (text == nullptr) {
        return;
    }
    for (std::size_t i = 0, j = std::strlen(text); i + 1 < j; ++i, --j) {
        const char c = text[i];
        text[i] = text[j - 1];
        text[j - 1] = c;
    }
}

char *m_strrev(char *bytes, int count) noexcept {
    if (bytes == nullptr || count <= 0 || count > kReverseWork) {
        return bytes;
    }
    char work[kReverseWork];
    for (int i = 0; i < count; ++i) {
        work[i] = bytes[count - 1 - i];
    }
    std::memcpy(bytes, work, static_cast<std::size_t>(count));
    return bytes;
}

char *get_file_from_path(const char *path) noexcept {
    if (path == nullptr) {
        return nullptr;
    }
    const char *slash = std::strrchr(path, '/');
    // Like strrchr, the name is handed back in the caller's own text.
    return const_cast<char *>(slash != nullptr ? slash + 1 : path);
}

// Wraps like the chassis' 32-bit arithmetic instead of overflowing.
int gv_get_time(int minutes, int seconds) noexcept {
    return static_cast<int>(static_cast<long long>(minutes) * 60 + seconds);
}

int gv_get_time_min(int seconds) noexcept {
    return seconds / 60;
}

int gv_get_time_sec(int seconds) noexcept {
    return seconds % 60;
}
