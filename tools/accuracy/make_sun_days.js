#!/usr/bin/env node
// SPDX-License-Identifier: Apache-2.0
// make_sun_days.js PLACES: prints resources/reference/sun_days.tsv, the events of the Sun on every third day of 2026 and
// 2027 at places, computed with astronomy-engine (npm install astronomy-engine). PLACES is a table with the first four
// columns of the output.
'use strict';
const astronomy = require('astronomy-engine');
const fs = require('fs');

const SUN = astronomy.Body.Sun;
const DEGREE = Math.PI / 180;
const DAY = 86400000; // [ms]
const STEP = 3; // [d]
const FIRST = Date.parse('2026-01-01T00:00:00Z');
const LAST = Date.parse('2027-12-31T00:00:00Z');
// Altitude of the Sun's centre [deg], direction (+1 morning, -1 afternoon).
const ALTITUDES = { 'dawn_-19': [-19, 1], 'limb_rise': [-50 / 60, 1], 'rise_0': [0, 1], 'morning_+5': [5, 1],
                    'afternoon_+5': [5, -1], 'set_0': [0, -1], 'limb_set': [-50 / 60, -1], 'dusk_-17': [-17, -1],
                    'dusk_-19': [-19, -1] };
const SHADOWS = { 'shadow_1': 1, 'shadow_2': 2 };

function place(observer, time) {
    const equator = astronomy.Equator(SUN, time, observer, true, true);
    const horizon = astronomy.Horizon(time, observer, equator.ra, equator.dec);
    return { declination: equator.dec, altitude: horizon.altitude };
}

// When a staff throws a shadow longer than that of noon by a number of its lengths, between two times.
function shadow(observer, noon, lowest, staffs) {
    const above = time => {
        const sun = place(observer, time);
        const shadowOfNoon = Math.tan(Math.abs(observer.latitude - sun.declination) * DEGREE);
        return sun.altitude - Math.atan(1 / (staffs + shadowOfNoon)) / DEGREE;
    };
    if (place(observer, noon).altitude <= 0 || above(noon) <= 0 || above(lowest) >= 0) {
        return null;
    }
    let [from, to] = [noon.ut, lowest.ut];
    for (let round = 0; round < 45; ++round) {
        const middle = (from + to) / 2;
        [from, to] = above(astronomy.MakeTime(middle)) > 0 ? [middle, to] : [from, middle];
    }
    return astronomy.MakeTime(to);
}

// The solar day whose transit lies next to the local mean noon of a date: name -> time or null.
function eventsOf(observer, midnight) {
    const noon = astronomy.MakeTime(new Date(midnight + DAY / 2 - observer.longitude * 240000));
    const at = (hours, from) => astronomy.SearchHourAngle(SUN, observer, hours, from, 1).time;
    const transit = at(0, noon.AddDays(-0.25));
    const before = at(12, transit.AddDays(-0.75));
    const after = at(12, transit.AddDays(0.25));
    const events = { transit };
    for (const [name, [altitude, direction]] of Object.entries(ALTITUDES)) {
        const [from, to] = direction > 0 ? [before, transit] : [transit, after];
        events[name] = astronomy.SearchAltitude(SUN, observer, direction, from, to.ut - from.ut, altitude);
    }
    for (const [name, staffs] of Object.entries(SHADOWS)) {
        events[name] = shadow(observer, transit, after, staffs);
    }
    return events;
}

const names = ['transit', ...Object.keys(ALTITUDES), ...Object.keys(SHADOWS)];
const [heading, ...lines] = fs.readFileSync(process.argv[2], 'utf8').trim().split('\n').map(line => line.split('\t'));
console.log([...heading.slice(0, 4), 'civil_day', ...names].join('\t'));
for (const cells of lines) {
    const observer = new astronomy.Observer(Number(cells[1]), Number(cells[2]), 0);
    for (let midnight = FIRST; midnight <= LAST; midnight += STEP * DAY) {
        const events = eventsOf(observer, midnight);
        const seconds = names.map(name => events[name] ? ((events[name].date - midnight) / 1000).toFixed(1) : 'none');
        console.log([...cells.slice(0, 4), new Date(midnight).toISOString().slice(0, 10), ...seconds].join('\t'));
    }
}
