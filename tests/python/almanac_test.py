# SPDX-License-Identifier: Apache-2.0
"""The package for Python, as a program uses it. PYTHONPATH leads to it."""
import datetime
import doctest
import json
import os
import shutil
import site
import subprocess
import sys
import threading

import numpy as np
import pytest

import zorel

DAY = datetime.date(2026, 11, 22)
SIX = ["fajr", "sunrise", "dhuhr", "asr", "maghrib", "isha"]


@pytest.fixture(scope="module")
def istanbul():
    return zorel.almanac("Istanbul")


def test_the_fifteen_times_have_names(istanbul):
    day = istanbul.day(DAY)
    assert list(day) == list(zorel.KEYS) and len(day) == 15
    assert list(zorel.KEYS[:6]) == SIX
    assert day.date == DAY


def test_a_time_is_aware_of_its_clock(istanbul):
    maghrib = istanbul.day(DAY)["maghrib"]
    assert maghrib.exists and maghrib.absence is None
    assert maghrib.local.utcoffset() == datetime.timedelta(hours=3)
    assert maghrib.local.date() == DAY
    assert maghrib.instant == maghrib.local and maghrib.instant.utcoffset() == datetime.timedelta(0)
    with pytest.raises(AttributeError):
        maghrib.local = None


def test_the_six_times_follow_one_another(istanbul):
    local = [istanbul.day(DAY)[key].local for key in SIX]
    assert local == sorted(local)


@pytest.mark.parametrize("name", ["İstanbul", "istanbul, turkey", "إسطنبول"])
def test_a_city_has_many_spellings(name):
    place = zorel.almanac(name).place
    assert (place.id, place.country_code, place.zone) == (745044, "TR", "Europe/Istanbul")
    assert place.population > 10_000_000


def test_a_part_of_a_name_is_not_the_name():
    with pytest.raises(zorel.PlaceNotFound, match="did you mean İstanbul, ") as problem:
        zorel.almanac("Istanb")
    assert problem.value.suggestions[0].startswith("İstanbul")
    assert isinstance(problem.value, LookupError)


def test_a_missing_catalogue_is_said(tmp_path):
    with pytest.raises(OSError, match="no catalogue"):
        zorel.almanac("Istanbul", bundle=str(tmp_path))


def test_points_have_the_clock_that_is_given():
    paris = zorel.almanac(48.8566, 2.3522, zone="Europe/Paris")
    assert paris.day(datetime.date(2026, 7, 1))["dhuhr"].local.utcoffset() == datetime.timedelta(hours=2)
    assert repr(paris) == "<Almanac of 48.8566, 2.3522>"
    zorel.almanac(0, 0)  # whole numbers, and the machine's clock


@pytest.mark.parametrize("latitude, longitude, zone", [
    (90.1, 0.0, None), (0.0, 180.1, None), (float("nan"), 0.0, None), (0.0, float("inf"), None),
    (0.0, 0.0, "Europe/Nowhere"), (0.0, 0.0, "../../etc/passwd")])
def test_what_is_no_point_is_refused(latitude, longitude, zone):
    with pytest.raises(ValueError):
        zorel.almanac(latitude, longitude, zone=zone)


def test_arguments_that_contradict_are_refused():
    for arguments in [("Istanbul", 28.9), (41.0,)]:
        with pytest.raises(TypeError):
            zorel.almanac(*arguments)
    with pytest.raises(TypeError):
        zorel.almanac("Istanbul", zone="Asia/Tokyo")
    with pytest.raises(ValueError):
        zorel.almanac("Istanbul", temkin=300)


def test_precaution_can_be_chosen():
    low, high = (zorel.almanac(41.01, 28.95, zone="Europe/Istanbul", temkin=t).day(DAY) for t in (250, 500))
    assert high["maghrib"].local > low["maghrib"].local


def test_absent_times_say_why():
    day = zorel.almanac(89.0, 0.0, zone="Europe/London").day(datetime.date(2026, 6, 21))
    absent = [time for time in day.values() if not time.exists]
    assert all(time.local is None and time.instant is None and time.absence for time in absent)
    assert len(absent) + sum(time.exists for time in day.values()) == 15


def test_dates_out_of_range_are_refused(istanbul):
    for date in (datetime.date(1582, 12, 31), datetime.date(9999, 1, 1)):
        with pytest.raises(ValueError, match="1583"):
            istanbul.day(date)
        with pytest.raises(ValueError, match="1583"):
            istanbul.days([date])
        with pytest.raises(ValueError):
            istanbul.hijri(date)
    with pytest.raises(ValueError):
        istanbul.days(np.array(["NaT"], dtype="datetime64[D]"))


def test_the_next_prayer_follows(istanbul):
    day = istanbul.day(DAY)
    for this, following in zip(SIX, SIX[1:]):
        assert istanbul.next(day[this].local) == day[following]
        assert istanbul.next(day[following].local - datetime.timedelta(microseconds=1)) == day[following]
    assert istanbul.next().local > datetime.datetime.now(datetime.timezone.utc)


@pytest.mark.parametrize("city", ["Istanbul", "Oslo", "Longyearbyen", "Casablanca", "Apia", "New York"])
def test_arrays_say_what_days_say(city):
    almanac = zorel.almanac(city)
    dates = np.arange("2026-01-01", "2027-01-01", 9, dtype="datetime64[D]")
    table, universal = almanac.days(dates), almanac.days(dates, local=False)
    assert list(table) == list(zorel.KEYS)
    for row, date in enumerate(dates):
        for key, time in almanac.day(date.item()).items():
            if time.exists:
                assert table[key][row].item() == time.local.replace(tzinfo=None)
                assert universal[key][row].item() == time.instant.replace(tzinfo=None)
            else:
                assert np.isnat(table[key][row]) and np.isnat(universal[key][row])


def test_arrays_keep_their_shape(istanbul):
    grid = np.arange("2026-01-01", "2026-01-07", dtype="datetime64[D]").reshape(2, 3)
    assert istanbul.days(grid)["fajr"].shape == (2, 3)
    assert istanbul.days(grid.T)["fajr"][1, 0] == istanbul.days(grid)["fajr"][0, 1]
    assert istanbul.days([])["fajr"].shape == (0,)
    assert istanbul.days(["2026-11-22"])["maghrib"].dtype == np.dtype("datetime64[s]")


def test_threads_do_not_disturb_one_another(istanbul):
    dates = np.arange("2026-01-01", "2026-03-01", dtype="datetime64[D]")
    expected, wrong = istanbul.days(dates), []

    def look():
        if not all((istanbul.days(dates)[key] == expected[key]).all() for key in SIX):
            wrong.append(True)

    threads = [threading.Thread(target=look) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not wrong


def test_qibla_and_hijri(istanbul):
    assert istanbul.qibla.bearing == pytest.approx(151.6, abs=0.1)
    assert istanbul.qibla.distance == pytest.approx(2400, abs=20)
    assert zorel.almanac(21.4225, 39.8262, zone="Asia/Riyadh").qibla.bearing is None
    assert istanbul.hijri(datetime.date(2026, 3, 1))[:2] == (1447, 9)
    assert istanbul.hijri(DAY).month in range(1, 13)


def test_corrections_have_names():
    names = {name for month in range(1, 13)
             for time in zorel.almanac("Mecca").day(datetime.date(2026, month, 28)).values() for name in time.corrections}
    assert "true_qibla" in names


@pytest.mark.skipif("ZOREL_PROGRAM" not in os.environ, reason="only beside the command line")
def test_the_command_line_tells_the_same(istanbul):
    answer = subprocess.run([os.environ["ZOREL_PROGRAM"], "today", "745044", "--date", "2026-11-22", "--json"],
                            check=True, capture_output=True, text=True).stdout
    for key in SIX:
        assert f'"{istanbul.day(DAY)[key].local.isoformat()}"' in json.dumps(json.loads(answer)), key


def test_the_words_at_its_door_are_true():
    assert doctest.testmod(zorel).failed == 0


def test_everything_has_a_docstring():
    for name in zorel.__all__:
        thing = getattr(zorel, name)
        assert name in ("KEYS", "City") or thing.__doc__, name


@pytest.mark.skipif(shutil.which("mypy") is None, reason="there is no mypy")
def test_types_hold(tmp_path):
    program = tmp_path / "program.py"
    program.write_text("import datetime\nimport zorel\n"
                       "time = zorel.almanac('Istanbul').day(datetime.date(2026, 11, 22))['fajr']\n"
                       "reveal_type(time.local)\nreveal_type(zorel.almanac(1, 2).qibla.bearing)\n"
                       "zorel.almanac('Istanbul').day('2026-11-22')\n")
    # Where packages are installed mypy looks by itself, and refuses to be told.
    folder = os.path.dirname(os.path.dirname(zorel.__file__))
    path = {} if folder in site.getsitepackages() else {"MYPYPATH": folder}
    check = subprocess.run([sys.executable, "-m", "mypy", "--strict", "--cache-dir", str(tmp_path), str(program)],
                           capture_output=True, text=True, env={**os.environ, **path})
    assert 'Revealed type is "Union[datetime.datetime, None]"' in check.stdout, check.stdout
    assert 'Revealed type is "Union[builtins.float, None]"' in check.stdout
    assert check.stdout.count("error:") == 1 and "incompatible type" in check.stdout, check.stdout
