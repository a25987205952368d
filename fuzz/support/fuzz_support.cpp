#include "support/fuzz_support.h"

#include "chassis_desc.h"
#include "gvutil/model.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

namespace gvfuzz {

namespace {

constexpr std::array<const char *, kChassisCount> kShipped = {"k7400", "test3", "k3100x", "k7400a",
                                                              "k7100"};

struct Roots {
    std::string base;
    std::array<std::string, kChassisCount> dirs;
    int current = -1;

    Roots() {
        std::string dir = (fs::temp_directory_path() / "gvfuzz.XXXXXX").string();
        if (mkdtemp(dir.data()) == nullptr) {
            std::perror("mkdtemp");
            std::abort();
        }
        base = dir;
        for (std::size_t i = 0; i < kShipped.size(); ++i) {
            gvsim::ChassisDesc desc;
            std::string error;
            const std::string file =
                std::string(GVSIM_CHASSIS_DIR) + "/" + kShipped[i] + ".chassis";
            dirs[i] = base + "/" + kShipped[i];
            if (!gvsim::load_chassis_file(file, desc, error) ||
                !gvsim::write_root(desc, dirs[i], error)) {
                std::fprintf(stderr, "gvfuzz: %s\n", error.c_str());
                std::abort();
            }
        }
    }
    ~Roots() {
        std::error_code ignored;
        fs::remove_all(base, ignored);
    }
    Roots(const Roots &) = delete;
    Roots &operator=(const Roots &) = delete;
    static Roots &roots() {
        static Roots instance;
        return instance;
    }
};

int format_message(void *, const char *format, ...) {
    static char scratch[4096];
    va_list args;
    va_start(args, format);
    const int length = std::vsnprintf(scratch, sizeof scratch, format, args);
    va_end(args);
    return length;
}

cli_ctx formatting_shell = {format_message, nullptr};

} // namespace

void use_chassis(int index) {
    Roots &roots = Roots::roots();
    if (index == roots.current) {
        return;
    }
    roots.current = index;
    setenv("GVUTIL_ROOT", roots.dirs[static_cast<std::size_t>(index)].c_str(), 1);
    if (init_switch_model_info() != 1) {
        std::fprintf(stderr, "gvfuzz: no model record under %s\n", std::getenv("GVUTIL_ROOT"));
        std::abort();
    }
}

int use_chassis(FuzzedDataProvider &in) {
    const int index = in.ConsumeIntegralInRange(0, kChassisCount - 1);
    use_chassis(index);
    return index;
}

const std::string &chassis_root(int index) {
    return Roots::roots().dirs[static_cast<std::size_t>(index)];
}

cli_ctx *shell() {
    return &formatting_shell;
}

cli_ctx *shell_or_quiet(FuzzedDataProvider &in) {
    return in.ConsumeBool() ? shell() : nullptr;
}

Text::Text(std::string_view text)
    : length_(text.substr(0, text.find('\0')).size()), bytes_(length_ + 1) {
    std::memcpy(bytes_.data(), text.data(), length_);
}

std::size_t count_items(std::string_view text) {
    std::size_t items = 0;
    while (!text.empty()) {
        const std::size_t comma = text.find(',');
        items += comma != 0 ? 1 : 0;
        text = comma == std::string_view::npos ? std::string_view{} : text.substr(comma + 1);
    }
    return items;
}

void fail(const char *what, std::string_view input) {
    std::fprintf(stderr, "gvfuzz: %s\ninput: \"%.*s\"\n", what, static_cast<int>(input.size()),
                 input.data());
    std::abort();
}

} // namespace gvfuzz
