// Each counter line is read as sscanf reads "%*s %*c %llu %*s %*c %llu":
// a name, one separator character, a value, then the same again. The scan
// below is that pattern written out, so that a port's two replies parse in
// well under the time one sscanf call takes to set up, and so that every
// corner is the C library's: white space skipped before each word and
// number, a sign allowed (a negative value wraps, as %llu reads it), a value
// beyond 64 bits read as the largest one, and a line cut short keeping what
// was read before the cut.
#include "stats/driver_reply.h"

#include <cstdint>
#include <cstring>

namespace gv::stats {

namespace {

using Field = std::uint64_t gv_if_stats_t::*;

constexpr std::uint64_t kLargest = UINT64_MAX;

bool is_space(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

class LineScan {
  public:
    explicit LineScan(const char *at) noexcept : at_(at) {}

    // " %*s": a word of at least one character.
    bool word() noexcept {
        skip_space();
        if (*at_ == '\0') {
            return false;
        }
        while (*at_ != '\0' && !is_space(*at_)) {
            ++at_;
        }
        return true;
    }

    // " %*c": the next character after white space, whatever it is.
    bool separator() noexcept {
        skip_space();
        if (*at_ == '\0') {
            return false;
        }
        ++at_;
        return true;
    }

    // " %llu"
    bool number(std::uint64_t &value) noexcept {
        skip_space();
        const bool negative = *at_ == '-';
        if (*at_ == '-' || *at_ == '+') {
            ++at_;
        }
        if (*at_ < '0' || *at_ > '9') {
            return false;
        }
        std::uint64_t magnitude = 0;
        bool overflow = false;
        for (; *at_ >= '0' && *at_ <= '9'; ++at_) {
            const auto digit = static_cast<std::uint64_t>(*at_ - '0');
            if (magnitude > (kLargest - digit) / 10) {
                overflow = true;
            }
            magnitude = magnitude * 10 + digit;
        }
        if (overflow) {
            value = kLargest;
        } else {
            value = negative ? 0 - magnitude : magnitude;
        }
        return true;
    }

  private:
    void skip_space() noexcept {
        while (is_space(*at_)) {
            ++at_;
        }
    }

    const char *at_;
};

// One "name sep value" triple into the field; false when the line ends or
// does not match before the value.
bool take(LineScan &scan, gv_if_stats_t &record, Field field) noexcept {
    std::uint64_t value = 0;
    if (!scan.word() || !scan.separator() || !scan.number(value)) {
        return false;
    }
    record.*field = value;
    return true;
}

void scan_pair(const char *reply, const char *keyword, gv_if_stats_t &record, Field first,
               Field second) noexcept {
    const char *at = std::strstr(reply, keyword);
    if (at == nullptr) {
        return;
    }
    LineScan scan(at);
    if (take(scan, record, first)) {
        take(scan, record, second);
    }
}

void scan_single(const char *reply, const char *keyword, gv_if_stats_t &record,
                 Field field) noexcept {
    const char *at = std::strstr(reply, keyword);
    if (at != nullptr) {
        LineScan scan(at);
        take(scan, record, field);
    }
}

struct PairLine {
    const char *keyword;
    Field first;
    Field second;
};

using R = gv_if_stats_t;

// "Octets" and "Pkts" are bare: they match their first occurrence anywhere
// in the reply, which the driver's line order makes the right one.
constexpr PairLine kRmonLines[] = {
    {"DropEvents", &R::drop_events, &R::jabbers},
    {"Octets", &R::octets, &R::collisions},
    {"Pkts", &R::pkts, &R::pkts_64_octets},
    {"BroadcastPkts", &R::broadcast_pkts, &R::pkts_65_to_127_octets},
    {"MulticastPkts", &R::multicast_pkts, &R::pkts_128_to_255_octets},
    {"CRCAlignErrors", &R::crc_align_errors, &R::pkts_256_to_511_octets},
    {"UndersizePkts", &R::undersize_pkts, &R::pkts_512_to_1023_octets},
    {"OversizePkts", &R::oversize_pkts, &R::pkts_1024_to_1518_octets},
};

} // namespace

void scan_interface_reply(const char *reply, gv_if_stats_t &record) noexcept {
    scan_pair(reply, "IfInOctets", record, &R::in_octets, &R::out_octets);
    record.hc_in_octets = record.in_octets;
    record.hc_out_octets = record.out_octets;
    scan_pair(reply, "IfInUcastPkts", record, &R::in_ucast_pkts, &R::out_ucast_pkts);
    record.hc_in_ucast_pkts = record.in_ucast_pkts;
    record.hc_out_ucast_pkts = record.out_ucast_pkts;
    scan_pair(reply, "IfInMcastPkts", record, &R::in_multicast_pkts, &R::out_multicast_pkts);
    scan_pair(reply, "IfInBcastPkts", record, &R::in_broadcast_pkts, &R::out_broadcast_pkts);
    scan_pair(reply, "IfInNUcastPkts", record, &R::in_nucast_pkts, &R::out_nucast_pkts);
    record.in_pkts = record.in_ucast_pkts + record.in_nucast_pkts;
    record.out_pkts = record.out_ucast_pkts + record.out_nucast_pkts;
    // The driver's text is read once here; reading the same line a second
    // time, as older code did, gives the same two values.
    scan_pair(reply, "IfInDiscards", record, &R::in_discards, &R::out_discards);
    scan_pair(reply, "IfInErrors", record, &R::in_errors, &R::out_errors);
    scan_single(reply, "IfLastChange", record, &R::last_change);
}

void scan_rmon_reply(const char *reply, gv_if_stats_t &record) noexcept {
    for (const PairLine &line : kRmonLines) {
        scan_pair(reply, line.keyword, record, line.first, line.second);
    }
    scan_single(reply, "Fragments", record, &R::fragments);
}

} // namespace gv::stats
