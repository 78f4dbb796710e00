#!/usr/bin/env python3
"""Writes src/base/char_tables.h: which UTF-16 units are letters or digits, and how they fold.

Usage: cmake/make_char_tables.py > src/base/char_tables.h
"""
import unicodedata

BMP = range(0x10000)
# Windows counts the Latin-1 superscripts as digits and letter numbers (Roman ones) as letters.
SUPERSCRIPT_DIGITS = (0xB2, 0xB3, 0xB9)


def alphanumeric(unit):
    category = unicodedata.category(chr(unit))
    return category[0] == 'L' or category in ('Nd', 'Nl') or unit in SUPERSCRIPT_DIGITS


def simple(mapped, unit):
    return ord(mapped) if len(mapped) == 1 and ord(mapped) in BMP else unit


def upper(unit):
    """Simple mapping: where the full one is longer than a character, the title form stands in.

    Like Windows, only pairs that map back: U+0131 is no 'I', U+017F no 'S'.
    """
    char = chr(unit)
    full = char.upper()
    result = simple(full if len(full) == 1 else char.title(), unit)
    return result if simple(chr(result).lower(), result) == unit else unit


def alphanumeric_ranges():
    ranges = []
    for unit in filter(alphanumeric, BMP):
        if ranges and ranges[-1][1] == unit - 1:
            ranges[-1][1] = unit
        else:
            ranges.append([unit, unit])
    return ranges


def upper_runs():
    """Runs of units, all of them or every second one, that lie equally far from their upper case."""
    runs = []
    for unit in BMP:
        delta = upper(unit) - unit
        if delta == 0:
            continue
        if runs:
            first, last, step, run_delta = runs[-1]
            gap = unit - last
            if delta == run_delta and gap <= 2 and (first == last or gap == step):
                runs[-1] = (first, unit, gap, delta)
                continue
        runs.append((unit, unit, 1, delta))
    return runs


def print_rows(rows):
    line = '   '
    for row in rows:
        if len(line) + len(row) + 2 > 100:
            print(line)
            line = '   '
        line += ' ' + row + ','
    print(line)


print(f'''// Made by cmake/make_char_tables.py from Unicode {unicodedata.unidata_version}; change the script, not this file.
// clang-format off
#pragma once

#include <cstdint>

namespace mrl {{

struct CharRange {{
  char16_t first;
  char16_t last;
}};

/// Letters and digits, in ascending order.
constexpr CharRange kAlphanumeric[] = {{''')
print_rows(f'{{{first:#x}, {last:#x}}}' for first, last in alphanumeric_ranges())
print('''};

/// Every `step`-th unit from `first` to `last` has its upper case `delta` away.
struct UpperRun {
  char16_t first;
  char16_t last;
  uint16_t step;
  int32_t delta;
};

/// In ascending order.
constexpr UpperRun kUpperRuns[] = {''')
print_rows(f'{{{first:#x}, {last:#x}, {step}, {delta}}}' for first, last, step, delta in upper_runs())
print('''};

}  // namespace mrl''')
