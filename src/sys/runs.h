// Runs of consecutive members and their range text ("1-3,5"). One builder
// serves every formatter of port, bridge, VLAN, GEM and id sets; what differs
// between them (which numbers are members, where a run must split, how a
// member is written) is the caller's policy.
#pragma once

#include "sys/text_builder.h"

#include <cstddef>
#include <limits>
#include <span>
#include <string_view>

namespace gv::sys {

// A run of members, first..last inclusive.
struct Run {
    int first;
    int last;
    bool single() const noexcept { return first == last; }
};

// Groups members, handed over in ascending order, into runs. A member joins
// the open run when the caller says it continues it; emit(Run) is called as
// each run closes.
template <typename Emit> class RunBuilder {
  public:
    explicit RunBuilder(Emit emit) noexcept : emit_(emit) {}

    void add(int member, bool continues_run) noexcept {
        if (open_ && continues_run) {
            run_.last = member;
        } else {
            finish();
            run_ = {member, member};
            open_ = true;
        }
        ++members_;
    }
    // Closes the open run, if any.
    void finish() noexcept {
        if (open_) {
            open_ = false;
            emit_(run_);
        }
    }
    int members() const noexcept { return members_; }

  private:
    Emit emit_;
    Run run_{0, 0};
    bool open_ = false;
    int members_ = 0;
};

// Walks the numbers first..last; is_member(n) says which belong. A member
// continues the run of member n-1 unless splits_before(n) holds. Answers how
// many members were found.
template <typename IsMember, typename SplitsBefore, typename Emit>
int for_each_run(int first, int last, IsMember is_member, SplitsBefore splits_before,
                 Emit emit) noexcept {
    RunBuilder<Emit> runs(emit);
    bool previous_is_member = false;
    for (int n = first; n <= last; ++n) {
        const bool member = is_member(n);
        if (member) {
            runs.add(n, previous_is_member && !splits_before(n));
        }
        previous_is_member = member;
    }
    runs.finish();
    return runs.members();
}

inline constexpr auto kNoSplit = [](int) noexcept { return false; };

// Runs of a list in its own order: a value continues the run when
// joins(previous, value) holds. Answers the number of values.
template <typename T, typename Joins, typename Emit>
int for_each_list_run(std::span<const T> values, Joins joins, Emit emit) noexcept {
    RunBuilder<Emit> runs(emit);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const int value = static_cast<int>(values[i]);
        runs.add(value, i > 0 && joins(static_cast<int>(values[i - 1]), value));
    }
    runs.finish();
    return runs.members();
}

inline constexpr auto kConsecutive = [](int previous, int value) noexcept {
    return previous != std::numeric_limits<int>::max() && value == previous + 1;
};

// Range text in a caller's buffer: runs joined by ",", a run of two or more
// closed by "-" and its last member. Written through a TextBuilder, so the
// text stays terminated within the capacity; formatters whose contract leaves
// the size to the caller pass none.
class RunText {
  public:
    static constexpr std::size_t kUnbounded = TextBuilder::kUnbounded;

    explicit RunText(char *out, std::size_t capacity = kUnbounded) noexcept
        : text_(out, capacity) {}

    // Starts a run: its first member, after "," unless it is the first run.
    void open(std::string_view member) noexcept;
    // Closes a run of two or more members: "-" and the last one.
    void close(std::string_view member) noexcept;
    // Writes one run: open(first) and, for two or more members, close(last).
    template <typename MemberText> void write(Run run, MemberText text) noexcept {
        open(text(run.first));
        if (!run.single()) {
            close(text(run.last));
        }
    }
    void append(std::string_view text) noexcept { text_.append(text); }
    // A run of plain numbers ("1-3", ",5"), written without a member text.
    void write_numbers(Run run) noexcept {
        if (runs_++ > 0) {
            text_.append(",");
        }
        text_.append_decimal(run.first);
        if (!run.single()) {
            text_.append("-");
            text_.append_decimal(run.last);
        }
    }

    std::size_t length() const noexcept { return text_.size(); }
    int runs() const noexcept { return runs_; }

  private:
    TextBuilder text_;
    int runs_ = 0;
};

// Decimal text of a number, for member texts: Decimal(42).view() is "42".
class Decimal {
  public:
    explicit Decimal(long long value) noexcept;
    std::string_view view() const noexcept { return {text_, length_}; }
    operator std::string_view() const noexcept { return view(); }

  private:
    char text_[24];
    std::size_t length_;
};

} // namespace gv::sys
