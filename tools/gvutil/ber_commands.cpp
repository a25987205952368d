// ber: the sub-agent's BER codec by hand. An integer or a text encoded into
// hex octets, and hex octets decoded into type, length and value, as the
// library reads them (lengths in the one-octet form only).
#include "commands.h"

#include "gvutil/ber.h"

#include <cctype>
#include <charconv>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace gvtool {

namespace {

using Octets = std::vector<std::uint8_t>;

constexpr std::uint8_t kInteger = 0x02;
constexpr std::uint8_t kOctetString = 0x04;
constexpr std::size_t kShortFormMost = 127;

struct TypeName {
    std::uint8_t type;
    const char *name;
};
constexpr TypeName kTypeNames[] = {
    {0x02, "integer"},   {0x04, "octet string"}, {0x05, "null"},    {0x06, "object identifier"},
    {0x30, "sequence"},  {0x40, "ip address"},   {0x41, "counter"}, {0x42, "gauge"},
    {0x43, "timeticks"}, {0x44, "opaque"},
};

const char *type_name(std::uint8_t type) {
    for (const TypeName &known : kTypeNames) {
        if (known.type == type) {
            return known.name;
        }
    }
    return "other";
}

// The application integers read as the integer does.
bool holds_integer(std::uint8_t type) {
    return type == kInteger || (type >= 0x41 && type <= 0x43);
}

void print_octets(const std::uint8_t *begin, const std::uint8_t *end) {
    for (const std::uint8_t *p = begin; p != end; ++p) {
        std::printf("%s%02x", p == begin ? "" : " ", *p);
    }
    std::printf("\n");
}

// Text as C would write it: printable characters kept, the rest escaped.
std::string quoted(const std::uint8_t *text, std::size_t length) {
    std::string out = "\"";
    for (std::size_t i = 0; i < length; ++i) {
        const unsigned char c = text[i];
        if (c == '"' || c == '\\') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (std::isprint(c) != 0) {
            out += static_cast<char>(c);
        } else {
            char escape[5];
            std::snprintf(escape, sizeof escape, "\\x%02x", c);
            out += escape;
        }
    }
    return out + "\"";
}

// A refusal after what was already printed, in that order on a terminal.
__attribute__((format(printf, 1, 2))) int refuse(const char *format, ...) {
    std::fflush(stdout);
    std::fputs("gvutil: ", stderr);
    va_list values;
    va_start(values, format);
    std::vfprintf(stderr, format, values);
    va_end(values);
    std::fputc('\n', stderr);
    return 1;
}

// Hex octets in any number of words, spaces and ':' between octets allowed.
bool read_hex(Args words, Octets &out) {
    std::string digits;
    for (const char *word : words) {
        for (const char *c = word; *c != '\0'; ++c) {
            if (std::isxdigit(static_cast<unsigned char>(*c)) != 0) {
                digits += *c;
            } else if (*c != ' ' && *c != ':') {
                return false;
            }
        }
    }
    if (digits.empty() || digits.size() % 2 != 0) {
        return false;
    }
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        std::uint8_t octet = 0;
        std::from_chars(digits.data() + i, digits.data() + i + 2, octet, 16);
        out.push_back(octet);
    }
    return true;
}

int encode_int(const char *text) {
    std::int32_t value = 0;
    const char *end = text + std::strlen(text);
    const auto [stop, error] = std::from_chars(text, end, value);
    if (error != std::errc() || stop != end) {
        std::fprintf(stderr, "gvutil: not a 32-bit integer: %s\n", text);
        return usage_error("ber");
    }
    std::uint8_t out[8];
    std::int32_t remaining = sizeof out;
    const std::uint8_t *written =
        snmp_build_int(out, &remaining, kInteger, &value, GV_BER_INT_SIZE);
    print_octets(out, written);
    return 0;
}

// From 128 octets on the codec writes the header without its length; the
// octets are shown as written and the operator told they will not read back.
int encode_string(const char *text) {
    const std::size_t length = std::strlen(text);
    Octets out(length + 2);
    auto remaining = static_cast<std::int32_t>(out.size());
    const std::uint8_t *written = snmp_build_string(out.data(), &remaining, kOctetString,
                                                    reinterpret_cast<const std::uint8_t *>(text),
                                                    static_cast<std::int32_t>(length));
    print_octets(out.data(), written);
    if (length > kShortFormMost) {
        return refuse("%zu octets: no length octet is written past 127 octets, so this "
                      "does not decode",
                      length);
    }
    return 0;
}

int decode(Args words) {
    Octets in;
    if (!read_hex(words, in)) {
        std::fprintf(stderr, "gvutil: not hex octets\n");
        return usage_error("ber");
    }
    const auto given = static_cast<std::int32_t>(in.size());
    // An empty integer takes its sign from the octet after its header: the
    // buffer carries a zero octet past the input so that read stays inside.
    in.push_back(0);
    std::int32_t remaining = given;
    std::uint8_t type = 0;
    if (snmp_parse_header(in.data(), &remaining, &type) == nullptr) {
        if (given < 2) {
            return refuse("%d octet: no room for a length", given);
        }
        return refuse("a content of %u octets runs past the %d octets given",
                      static_cast<unsigned>(in[1]), given);
    }
    const std::int32_t length = remaining;
    std::printf("%-8s 0x%02x (%s)\n", "type", type, type_name(type));
    std::printf("%-8s %d\n", "length", length);
    remaining = given;
    if (holds_integer(type)) {
        std::int32_t value = 0;
        if (snmp_parse_int(in.data(), &remaining, &type, &value, GV_BER_INT_SIZE) == nullptr) {
            return refuse("an integer of %d octets (at most 4)", length);
        }
        std::printf("%-8s %d\n", "value", value);
    } else {
        std::uint8_t text[256];
        std::int32_t text_size = sizeof text;
        snmp_parse_string(in.data(), &remaining, &type, text, &text_size);
        std::printf("%-8s %s\n", "value",
                    quoted(text, static_cast<std::size_t>(text_size)).c_str());
    }
    if (remaining > 0) {
        std::printf("%-8s %d octets\n", "after", remaining);
    }
    return 0;
}

} // namespace

int run_ber(Args args) {
    if (args.size() == 3 && std::strcmp(args[0], "encode") == 0) {
        if (std::strcmp(args[1], "int") == 0) {
            return encode_int(args[2]);
        }
        if (std::strcmp(args[1], "string") == 0) {
            return encode_string(args[2]);
        }
    }
    if (args.size() >= 2 && std::strcmp(args[0], "decode") == 0) {
        return decode(args.subspan(1));
    }
    return usage_error("ber");
}

} // namespace gvtool
