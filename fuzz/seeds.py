#!/usr/bin/env python3
"""Writes the seed corpus of every fuzz target (fuzz/corpus/<target>/<seed>).

A target reads its numbers (chassis, selector, bounds) from the end of its
input and its text from the front, as FuzzedDataProvider hands them out. A
seed here is the text and the numbers in the order the target takes them,
each as (value, lowest, highest) of its ConsumeIntegralInRange call; a bare
bool is (value, 0, 1) and a full int is (value, -2**31, 2**31 - 1).
Run it after changing what a target takes, and commit the corpus. The
model_record seeds are the model records of the generated chassis roots
(build/default/roots/<model>/proc/shape/ioctrl), copied as they are.
"""
import os
import sys

# The shipped chassis, in the order fuzz_support.cpp writes their roots.
K7400, TEST3, K3100X, K7400A, K7100 = range(5)
CHASSIS = (0, 0, 4)
INT = (-(2**31), 2**31 - 1)


def tail(numbers):
    """The bytes that give these numbers, taken from the end one by one."""
    out = b""
    for value, low, high in numbers:
        span = high - low
        width = 0
        while width < 8 and span >> (8 * width):
            width += 1
        raw = (value - low) % (2 ** (8 * width)) if width else 0
        # The first byte taken (the last one of the input) is the most significant.
        out = raw.to_bytes(width, "little") + out
    return out


def seed(text, *numbers):
    return text.encode() + tail(numbers)


def chassis(index):
    return (index, 0, 4)


def on(index, ctx, which, last, *rest):
    return [chassis(index), (ctx, 0, 1), (which, 0, last)] + list(rest)


SEEDS = {
    "sys_text": {
        "digits": seed("12345", (5, -2, 300)),
        "minus": seed("-17", (1, -2, 300)),
        "beyond_int": seed("2147483648", (10, -2, 300)),
        "hex": seed("deadBEEF", (8, -2, 300)),
        "mixed": seed("007x", (3, -2, 300)),
    },
    "cli_slot_ports": {
        "slots": seed("1,2-4,s2", *on(TEST3, 1, 0, 6)),
        "slot_word": seed("s3", *on(K7400, 1, 1, 6)),
        "pair": seed("1/3", *on(TEST3, 1, 2, 6)),
        "trunk_pair": seed("t/2", *on(K7400, 1, 2, 6)),
        "ports": seed("1/1-2/4,0/2,t/1-3,1/5-7", *on(TEST3, 1, 3, 6)),
        "ports_quiet": seed("GE1/1-1/4,3/2-1/1", *on(K7400, 0, 3, 6)),
        "simple": seed("1/1-3/2,2/9", *on(TEST3, 1, 4, 6, (4, -1, 40), (8, -1, 300))),
        "slotif": seed("1/3-3/2,0/1", *on(K7400, 1, 5, 6)),
        "ge_name": seed("GE105", *on(K3100X, 1, 6, 6)),
    },
    "cli_port_lists": {
        "token": seed("1-4,7,9-3", *on(K3100X, 1, 0, 6, (24, -1, 1600))),
        "pon_token": seed("1,3-5", *on(K3100X, 1, 1, 6, (16, -1, 1600))),
        "list_slots": seed("1/1-1/4,2/3,t/1", *on(TEST3, 1, 2, 6, (50, -1, 1600))),
        "list_slotless": seed("1-8,20", *on(K3100X, 1, 2, 6, (28, -1, 1600))),
        "uni": seed("1-4,2", *on(TEST3, 0, 3, 6, (4, -1, 1600))),
        "not_cli": seed("3-9,1", *on(K7400, 1, 4, 6, (8, -1, 1600))),
        "pon_not_cli": seed("2-6", *on(K7400, 0, 5, 6, (8, -1, 1600))),
    },
    "cli_value_tokens": {
        "vlans": seed("1-3,10,4095", *on(K7400, 1, 0, 12, (0, -1, 300), (0, -1, 300), (2, -1, 3))),
        "bridge": seed("br10", *on(K7400, 1, 1, 12, (0, -1, 300), (0, -1, 300), (2, -1, 3))),
        "default": seed("default", *on(K7400, 0, 1, 12, (0, -1, 300), (0, -1, 300), (2, -1, 3))),
        "onus": seed("1-4,8-9,0", *on(TEST3, 1, 2, 12, (8, -1, 300), (0, -1, 300), (2, -1, 3))),
        "onu_list": seed("3-5,4,1", *on(TEST3, 1, 3, 12, (128, -1, 300), (0, -1, 300), (1, -1, 3))),
        "range": seed("1-4,7", *on(K7400, 1, 4, 12, (7, -1, 300), (0, -1, 300), (1, -1, 3))),
        "cos": seed("0-3,7", *on(K7400, 1, 5, 12, (7, -1, 300), (0, -1, 300), (1, -1, 3))),
        "vrid": seed("1,5-9", *on(K7400, 0, 6, 12, (255, -1, 300), (0, -1, 300), (1, -1, 3))),
        "interface": seed("2-4", *on(K7400, 1, 7, 12, (8, -1, 300), (0, -1, 300), (1, -1, 3))),
        "groups": seed("5,3-4,0-2", *on(K7400, 1, 8, 12, (8, -1, 300), (0, -1, 300), (1, -1, 3))),
        "macs": seed("00:11:22:33:44:55,aa-bb-cc-dd-ee-ff",
                     *on(K7400, 1, 9, 12, (0, -1, 300), (0, -1, 300), (1, -1, 3))),
        "gem_token": seed("1/3-2/2,4/1-5", *on(K7400, 1, 10, 12, (64, -1, 300), (8, -1, 300), (1, -1, 3))),
        "gem_list": seed("1/3-2/2", *on(K7400, 1, 11, 12, (64, -1, 300), (8, -1, 300), (1, -1, 3))),
        "trunk_tag": seed("srcdstl4", *on(K7400, 1, 12, 12, (0, -1, 300), (0, -1, 300), (1, -1, 3))),
    },
    "settext_sets": {
        "ports": seed("1/1-4,2/3,t/2", chassis(TEST3), (0, 0, 2), (1, 0, 1)),
        "ports_slotless": seed("1-4,9,20-28", chassis(K3100X), (0, 0, 2), (1, 0, 1)),
        "ports_bound": seed("1-4,9", chassis(K3100X), (0, 0, 2), (0, 0, 1), (6, *INT)),
        "bridges": seed("1-3,10,4094", chassis(K7400), (1, 0, 2), (1, 0, 1)),
        "port_number": seed("0/2", chassis(K7400), (2, 0, 2), (1, 0, 1)),
    },
    "settext_args": {
        "int": seed("-17", (0, 0, 2), (0, -1, 5), (0, 0, 2**32 - 1), (2**32 - 1, 0, 2**32 - 1),
                    (1, 0, 1), (1, 0, 1), (0, 0, 1), (0, -1, 64)),
        "uint": seed("4094", (0, 0, 2), (1, -1, 5), (1, 0, 2**32 - 1), (4094, 0, 2**32 - 1),
                     (1, 0, 1), (1, 0, 1), (0, 0, 1), (0, -1, 64)),
        "address": seed("10.1.2.3", (0, 0, 2), (2, -1, 5), (0, 0, 2**32 - 1), (0, 0, 2**32 - 1),
                        (0, 0, 1), (1, 0, 1), (1, 0, 1), (0, -1, 64)),
        "prefix": seed("10.1.0.0/16", (0, 0, 2), (3, -1, 5), (0, 0, 2**32 - 1), (0, 0, 2**32 - 1),
                       (0, 0, 1), (1, 0, 1), (0, 0, 1), (0, -1, 64)),
        "mac": seed("00:11:22:33:44:55", (0, 0, 2), (4, -1, 5), (0, 0, 2**32 - 1),
                    (0, 0, 2**32 - 1), (0, 0, 1), (0, 0, 1), (0, 0, 1), (0, -1, 64)),
        "name": seed("port-1.a_b", (2, 0, 2), (0, -1, 5), (0, 0, 2**32 - 1), (0, 0, 2**32 - 1),
                     (0, 0, 1), (0, 0, 1), (0, 0, 1), (6, -1, 64)),
    },
    "ifname_names": {
        "prefix": seed("gigabitethernet0/3", chassis(K7400), (0, 0, 5), (12, -1, 40)),
        "predicates": seed("XGSPON1/4", chassis(K7400), (1, 0, 5), (0, -1, 40)),
        "slot_port": seed("GE1/1-4", chassis(TEST3), (2, 0, 5), (0, -1, 40)),
        "separation": seed("GE0/5-2", chassis(K7400), (3, 0, 5), (0, -1, 40)),
        "user_separation": seed("GE1/5-1/2", chassis(K7400), (4, 0, 5), (0, -1, 40)),
        "group": seed("CG12", chassis(K7400), (5, 0, 5), (0, -1, 40)),
    },
    "ifname_lists": {
        "convert": seed("gigabitethernet\\|0/3,1/2-4,5", chassis(K7400), (0, 0, 8), (1, 0, 1),
                        (0, -1, 300)),
        "convert_user": seed("vlan\\|1", chassis(K7400), (1, 0, 8), (1, 0, 1), (0, -1, 300)),
        "tunnel": seed("tunnel7", chassis(K7400), (0, 0, 8), (0, 0, 1), (0, -1, 300)),
        "sort": seed("\\|GE2/1,GE1/1-4,GE1/1-2,XE3/1", chassis(K7400), (2, 0, 8), (0, 0, 1),
                     (0, -1, 300)),
        "translate": seed("\\|GE0/1,XE2/3", chassis(K7400), (4, 0, 8), (1, 0, 1), (0, -1, 300)),
        "ranges": seed("tengigabitethernet\\|GE1/1-GE1/4,XE3/1", chassis(K7400), (5, 0, 8),
                       (0, 0, 1), (8, -1, 300)),
        "check": seed("gigabitethernet\\|GE1/1-4,GE2/3", chassis(TEST3), (6, 0, 8), (0, 0, 1),
                      (99, -1, 300)),
        "range_line": seed("\\|GE1/1,GE1/3,XE2/1", chassis(K7400), (7, 0, 8), (0, 0, 1),
                           (0, -1, 300)),
        "prompt": seed("GE", chassis(K7400), (8, 0, 8), (0, 0, 1), (0, -1, 300), (4, 0, 12),
                       (1, -2, 40), (1, -2, 70), (1, -2, 40), (2, -2, 70), (1, -2, 40),
                       (3, -2, 70), (1, -2, 40), (5, -2, 70)),
    },
    "range_lists": {
        "ids": seed("1-5,8,10-12", chassis(K7400), (0, 0, 3), (40, 0, 80), (100, 0, 5000),
                    (0, *INT), (0, *INT)),
        "ports": seed("1-4,7", chassis(TEST3), (1, 0, 3), (40, 0, 80), (48, 0, 5000),
                      (0, *INT), (0, *INT)),
        "bridges": seed("default-br4,br10", chassis(K7400), (2, 0, 3), (12, 0, 80),
                        (4094, 0, 5000), (0, *INT), (0, *INT)),
        "elements": seed("1-5,123456789012345,9", chassis(K7400), (3, 0, 3), (0, 0, 80),
                         (0, 0, 5000), (1, *INT), (100, *INT)),
    },
}


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    for target, seeds in SEEDS.items():
        folder = os.path.join(here, "corpus", target)
        os.makedirs(folder, exist_ok=True)
        for name, data in seeds.items():
            with open(os.path.join(folder, name), "wb") as f:
                f.write(data)
    print(f"{sum(len(s) for s in SEEDS.values())} seeds in {len(SEEDS)} targets", file=sys.stderr)


if __name__ == "__main__":
    main()
