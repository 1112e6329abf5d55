# SPDX-License-Identifier: Apache-2.0
"""Prayer times, the direction of the Kaaba and Hijri dates, computed on this machine.

>>> import datetime, zorel
>>> day = zorel.almanac("Istanbul").day(datetime.date(2026, 11, 22))
>>> day["maghrib"].local.strftime("%H:%M")
'17:48'

Times are rounded to the minute that is safe: beginnings of prayers to the later one, ends to the earlier one.
"""

from __future__ import annotations

import datetime
from collections.abc import Iterator, Mapping
from dataclasses import dataclass
from typing import TYPE_CHECKING, NamedTuple

from . import _zorel
from ._zorel import City

if TYPE_CHECKING:
    import numpy as np
    import numpy.typing as npt

__version__ = _zorel.VERSION
__all__ = ["KEYS", "Almanac", "City", "Day", "HijriDate", "PlaceNotFound", "Qibla", "Time", "almanac"]

#: The names of the fifteen times of a day, the six of everybody first.
KEYS = _zorel.KEYS


class PlaceNotFound(LookupError):
    """No place of the catalogue is called so."""

    def __init__(self, name: str, suggestions: list[str]) -> None:
        hint = f"; did you mean {', or '.join(suggestions)}?" if suggestions else ""
        super().__init__(f"no place is called {name!r}{hint}")
        #: Places that may have been meant, the likeliest first.
        self.suggestions = suggestions


class HijriDate(NamedTuple):
    """A date of the Hijri calendar, by the computed crescent."""

    year: int
    month: int
    day: int


class Qibla(NamedTuple):
    """Where the Kaaba is."""

    #: true, clockwise from north [degrees]; None at the Kaaba itself
    bearing: float | None
    #: along the great circle [km]
    distance: float


@dataclass(frozen=True)
class Time:
    """One time of a day."""

    #: one of KEYS
    key: str
    #: on the clock of the place, with its offset; None when there is no such time on that day
    local: datetime.datetime | None
    #: why there is none: "never_reached", "night_without_ends", "out_of_order" or "no_bearing"
    absence: str | None
    #: the names of the corrections that it carries (docs/accuracy.md); none: the engine's own
    corrections: tuple[str, ...]

    @property
    def exists(self) -> bool:
        """Whether there is such a time on that day."""
        return self.local is not None

    @property
    def instant(self) -> datetime.datetime | None:
        """The same in universal time."""
        return None if self.local is None else self.local.astimezone(datetime.timezone.utc)


def _time(row: tuple[str, str | None, int, int, list[str]]) -> Time:
    key, absence, instant, offset, corrections = row
    local = None
    if absence is None:
        zone = datetime.timezone(datetime.timedelta(seconds=offset))
        epoch = datetime.datetime(1970, 1, 1, tzinfo=datetime.timezone.utc)
        local = (epoch + datetime.timedelta(seconds=instant)).astimezone(zone)
    return Time(key, local, absence, tuple(corrections))


class Day(Mapping[str, Time]):
    """The fifteen times of a date, by their keys: day["fajr"]."""

    def __init__(self, date: datetime.date, times: dict[str, Time]) -> None:
        #: the date on the clock of the place
        self.date = date
        self._times = times

    def __getitem__(self, key: str) -> Time:
        return self._times[key]

    def __iter__(self) -> Iterator[str]:
        return iter(self._times)

    def __len__(self) -> int:
        return len(self._times)

    def __repr__(self) -> str:
        return f"<Day {self.date.isoformat()}>"


class Almanac:
    """Everything that can be told of the days of a place. May be used from several threads."""

    def __init__(self, city: City) -> None:
        #: the place: its name, region, country, coordinates and time zone
        self.place = city

    def __repr__(self) -> str:
        point = f"{self.place.latitude:.4f}, {self.place.longitude:.4f}"
        return f"<Almanac of {self.place.name or point}>"

    def day(self, date: datetime.date) -> Day:
        """The times of a date, 1583-01-01 to 9998-12-31. ValueError for a date outside."""
        rows = _zorel.day_of(self.place, date.year, date.month, date.day)
        plain = datetime.date(date.year, date.month, date.day)
        return Day(plain, {row[0]: _time(row) for row in rows})

    def days(self, dates: npt.ArrayLike, local: bool = True) -> dict[str, npt.NDArray[np.datetime64]]:
        """The times of many dates at once, as numpy arrays by key; NaT where there is none.

        dates: what numpy takes for datetime64[D]. local: on the clock of the place; otherwise universal time.
        Consecutive days are computed several times faster than one by one.
        """
        import numpy as np

        wanted = np.asarray(dates, dtype="datetime64[D]")
        instants, offsets = _zorel.days_of(self.place, wanted.astype(np.int64).ravel())
        times = instants.view("datetime64[s]")
        if local:
            times = times + offsets.view("timedelta64[s]")
        return {key: times[:, i].reshape(wanted.shape) for i, key in enumerate(KEYS)}

    def next(self, after: datetime.datetime | None = None) -> Time | None:
        """The next of the six times after an instant, now if none is given; None when there is none within two days.

        A datetime without a zone is one of this machine's clock.
        """
        instant = datetime.datetime.now(datetime.timezone.utc) if after is None else after.astimezone()
        row = _zorel.next_of(self.place, int(instant.timestamp() // 1))
        return None if row is None else _time(row)

    def hijri(self, date: datetime.date) -> HijriDate:
        """The Hijri date whose daylight falls on a date."""
        return HijriDate(*_zorel.hijri_of(self.place, date.year, date.month, date.day))

    @property
    def qibla(self) -> Qibla:
        """The direction of the Kaaba and the way to it."""
        return Qibla(*_zorel.qibla_of(self.place))


def almanac(
    place: str | float,
    longitude: float | None = None,
    *,
    zone: str | None = None,
    temkin: int | None = None,
    bundle: str | None = None,
) -> Almanac:
    """The almanac of a city by its name, or of a point.

    almanac("Istanbul"), almanac("Paris, Texas"): in any spelling, the largest of several. A part of a name is not taken
    for the name: PlaceNotFound then has suggestions. OSError when the catalogue cannot be read.

    almanac(41.01, 28.95, zone="Europe/Istanbul"): degrees, north and east positive; without a zone the machine's clock.

    temkin: 250 or 500, which table of precaution intervals counts [metres]; a city has its own.
    bundle: folder of another catalogue than the installed one.
    """
    if isinstance(place, str):
        if longitude is not None or zone is not None:
            raise TypeError("a city has coordinates and a time zone of its own")
        city = _zorel.city_of(place, bundle)
        if city is None:
            raise PlaceNotFound(place, _zorel.similar_names(place, 3, bundle))
    else:
        if longitude is None:
            raise TypeError("a point has a latitude and a longitude")
        city = _zorel.point_at(place, longitude, zone)
    if temkin is not None:
        city.set_temkin(temkin)
    return Almanac(city)
