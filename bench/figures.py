# SPDX-License-Identifier: Apache-2.0
"""The table of figures: each with the least and the median of its repetitions, beside its peer and its target."""
import statistics


class Target:
    """At most so much: of the least time itself, or of its ratio to the peer's least time."""

    def __init__(self, most, of_ratio=False):
        self.most = most
        self.of_ratio = of_ratio

    def text(self, unit):
        return f"ratio {self.most:g}" if self.of_ratio else f"{self.most:g} {unit}"

    def verdict(self, least, ratio):
        value = ratio if self.of_ratio else least
        if value is None:
            return "no peer"
        return "met" if value <= self.most else f"MISSED by {(value / self.most - 1.0) * 100.0:.0f} %"


def ratio(most):
    return Target(most, of_ratio=True)


def at_most(most):
    return Target(most)


def number(value):
    return f"{value:.3g}" if value < 100 else f"{value:.0f}"


class Table:
    """@param times of the repetitions, all in one unit; the ratio is that of the least times, in brackets that of the
    medians. On a machine with other work the least are disturbed least."""
    HEADS = ("figure", "least", "median", "peer", "its least", "ratio (of medians)", "target", "")

    def __init__(self):
        self.rows = []
        self.missed = []

    def add(self, figure, times, unit, target=None, peer="", peer_times=None):
        least, median = min(times), statistics.median(times)
        ratio_of_least, ratio_text, peer_text = None, "", ""
        if peer_times:
            ratio_of_least = least / min(peer_times)
            ratio_text = f"{ratio_of_least:.3f} ({median / statistics.median(peer_times):.3f})"
            peer_text = f"{number(min(peer_times))} {unit}"
        verdict = target.verdict(least, ratio_of_least) if target else ""
        if verdict.startswith("MISSED"):
            self.missed.append(f"{figure}: {verdict}")
        self.rows.append((figure, f"{number(least)} {unit}", f"{number(median)} {unit}", peer, peer_text, ratio_text,
                          target.text(unit) if target else "report", verdict))

    def not_measured(self, figure, why):
        self.missed.append(f"{figure}: not measured ({why})")
        self.rows.append((figure, "", "", "", "", "", "", f"NOT MEASURED: {why}"))

    def text(self):
        widths = [max(len(row[column]) for row in [self.HEADS, *self.rows]) for column in range(len(self.HEADS))]

        def line(cells):
            return "| " + " | ".join(cell.ljust(width) for cell, width in zip(cells, widths)) + " |"
        rule = "|" + "|".join("-" * (width + 2) for width in widths) + "|"
        summary = "All targets are met." if not self.missed else "Not as wanted:\n" + "\n".join(self.missed)
        return "\n".join([line(self.HEADS), rule, *map(line, self.rows), "", summary])
