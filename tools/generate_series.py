#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes the series tables (src/engine/series/*.h, src/almanac/series/*.h) from resources/series/*.tsv.

Each generated file names its source and carries the SHA-256 of it and the number of rows.
  generate_series.py            writes the files
  generate_series.py --check    writes nothing; exit code 1 when a file is missing or differs
"""

import argparse
import hashlib
import sys
from collections import OrderedDict
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent


@dataclass
class Table:
    source: str  # file name in resources/series
    target: str  # file name in src/<library>/series
    title: str
    struct: str  # C++ structure of one row
    fields: list  # (C++ type, member, column, comment)
    array: str  # array name; for a grouped table its prefix
    group: str = ""  # column that splits the table into several arrays
    library: str = "engine"
    namespace: str = "zorel"


TABLES = [
    Table("earth.tsv", "EarthSeries.h",
          "Abridged VSOP87D series of the Earth (Bretagnon & Francou 1988), single-precision values.",
          "EarthTerm",
          [("double", "amplitude", "A_f32", "[1e-8 rad or 1e-8 au]"), ("double", "phase", "B_f32", "[rad]"),
           ("double", "frequency", "F_f32", "[rad per Julian millennium]")],
          "kEarth", "series"),
    Table("nutation.tsv", "NutationSeries.h",
          "IAU 1980 nutation, the 31 terms of Meeus, Astronomical Algorithms, table 21.A.",
          "NutationTerm",
          [("int", "D", "D", "multiple of the Moon's mean elongation"),
           ("int", "M", "M", "multiple of the Sun's mean anomaly"),
           ("int", "Mp", "Mp", "multiple of the Moon's mean anomaly"),
           ("int", "F", "F", "multiple of the Moon's argument of latitude"),
           ("int", "Omega", "Omega", "multiple of the longitude of the ascending node"),
           ("int", "dpsi", "dpsi", "[0.0001 arcsec]"),
           ("int", "dpsiRate", "dpsi_rate", "[0.00001 arcsec per Julian century]"),
           ("int", "deps", "deps", "[0.0001 arcsec]"),
           ("int", "depsRate", "deps_rate", "[0.00001 arcsec per Julian century]")],
          "kNutation"),
    Table("moon_lr.tsv", "MoonLongitudeSeries.h",
          "Longitude and distance of the Moon, Meeus, Astronomical Algorithms, table 45.A.",
          "MoonLongitudeTerm",
          [("int", "D", "D", "multiples of the mean arguments"), ("int", "M", "M", ""), ("int", "Mp", "Mp", ""),
           ("int", "F", "F", ""), ("int", "sigmaL", "Sigma_L", "sine term [1e-6 deg]"),
           ("int", "sigmaR", "Sigma_R", "cosine term [0.001 km]")],
          "kMoonLongitude"),
    Table("moon_b.tsv", "MoonLatitudeSeries.h",
          "Latitude of the Moon, Meeus, Astronomical Algorithms, table 45.B.",
          "MoonLatitudeTerm",
          [("int", "D", "D", "multiples of the mean arguments"), ("int", "M", "M", ""), ("int", "Mp", "Mp", ""),
           ("int", "F", "F", ""), ("int", "sigmaB", "Sigma_B", "sine term [1e-6 deg]")],
          "kMoonLatitude"),
    Table("moon_phases.tsv", "MoonPhaseSeries.h",
          "Periodic terms of the Moon's phases, Meeus, Astronomical Algorithms, ch. 47.",
          "MoonPhaseTerm",
          [("double", "coefficient", "coefficient_day", "[day]"),
           ("int", "ePower", "E_power", "power of the factor E"),
           ("int", "M", "M", "multiples of the arguments of the sine"), ("int", "Mp", "Mp", ""),
           ("int", "F", "F", ""), ("int", "Omega", "Omega", "")],
          "kMoonPhase", "kind"),
    Table("igrf11.tsv", "Igrf11.h",
          "IGRF-11 coefficients, epoch 2010.0, single-precision values; secular variation 2010-2015.",
          "MagneticCoefficient",
          [("char", "kind", "kind", "'g' or 'h'"), ("int", "n", "n", "degree"), ("int", "m", "m", "order"),
           ("double", "main", "main_f32", "[nT]"),
           ("double", "secular", "sv_f32", "[nT per year], 0 above degree 8")],
          "kIgrf11"),
    Table("wmm2025.tsv", "Wmm2025.h",
          "World Magnetic Model 2025, epoch 2025.0, Schmidt semi-normalised, with the yearly change.",
          "GaussCoefficients",
          [("int", "n", "n", "degree"), ("int", "m", "m", "order"), ("double", "g", "g", "[nT]"),
           ("double", "h", "h", "[nT]"), ("double", "gRate", "g_dot", "[nT per year]"),
           ("double", "hRate", "h_dot", "[nT per year]")],
          "kWmm2025", library="almanac", namespace="zorel::almanac"),
]


def read(path):
    lines = path.read_text(encoding="ascii").splitlines()
    header = lines[0].lstrip("# ").split("\t")
    rows = [dict(zip(header, line.split("\t"))) for line in lines[1:]]
    for number, row in enumerate(rows, 2):
        if len(row) != len(header):
            sys.exit(f"{path}:{number}: {len(header)} columns expected")
    return rows


def literal(kind, text):
    if kind == "char":
        return f"'{text}'"
    if text == "":
        return "0.0" if kind == "double" else "0"
    if kind == "int":
        return str(int(text))
    return repr(float(text))


def groups(table, rows):
    """Array name -> its rows, in file order."""
    result = OrderedDict()
    for row in rows:
        suffix = row[table.group].lstrip("_").capitalize() if table.group else ""
        result.setdefault(table.array + suffix, []).append(row)
    return result


def generate(table):
    path = ROOT / "resources" / "series" / table.source
    rows = read(path)
    checksum = hashlib.sha256(path.read_bytes()).hexdigest()
    out = ["// SPDX-License-Identifier: Apache-2.0",
           f"// Generated by tools/generate_series.py from resources/series/{table.source}; do not edit.",
           "/// @file", f"/// {table.title}", "#pragma once", "", "#include <array>", "#include <cstddef>",
           "#include <string_view>", "", "// clang-format off", f"namespace {table.namespace} {{", "",
           f"struct {table.struct} {{"]
    for kind, member, _, comment in table.fields:
        out.append(f"    {kind} {member};" + (f" ///< {comment}" if comment else ""))
    out += ["};", "",
            f"inline constexpr std::string_view {table.array}Sha256 =",
            f'    "{checksum}";',
            f"inline constexpr std::size_t {table.array}Rows = {len(rows)};"]
    for name, members in groups(table, rows).items():
        out += ["", f"inline constexpr std::array<{table.struct}, {len(members)}> {name}{{{{"]
        for row in members:
            out.append("    {" + ", ".join(literal(k, row[c]) for k, _, c, _ in table.fields) + "},")
        out.append("}};")
    out += ["", f"}} // namespace {table.namespace}", ""]
    return "\n".join(out)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true", help="compare only")
    arguments = parser.parse_args()
    stale = []
    for table in TABLES:
        target = ROOT / "src" / table.library / "series" / table.target
        text = generate(table)
        if arguments.check:
            if not target.exists() or target.read_text(encoding="ascii") != text:
                stale.append(table.target)
        else:
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_text(text, encoding="ascii")
    if stale:
        sys.exit("not what the generator writes: " + ", ".join(stale))


if __name__ == "__main__":
    main()
