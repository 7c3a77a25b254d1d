"""Dates of the model as times.

The model writes the date of the step after a record, by a calendar of its own: every fourth year is a
leap year; in its February the 28th is followed by 1 March, then by 29 and even 30 February.
"""

from __future__ import annotations

import numpy as np

FIRST_YEAR, LAST_YEAR = 1678, 2261  # what a time in nanoseconds can hold


def times_of(dates, interval_hours: float | None = None) -> np.ndarray | None:
    """Times of dates YYYYMMDD, which never go backwards, or None if one of them is no date or too far away.

    1 March read before 29 or 30 February of its year is the 29th; 30 February is 1 March. With an interval
    below 24 h the records of one date lie that far apart; otherwise they have the same time."""
    dates = np.asarray(dates, dtype=np.int64)
    year, month, day = dates // 10000, dates // 100 % 100, dates % 100
    if dates.size == 0:
        return np.empty(0, dtype="datetime64[ns]")
    if year.min() < FIRST_YEAR or year.max() > LAST_YEAR or month.min() < 1 or month.max() > 12:
        return None
    if day.min() < 1 or day.max() > 31:
        return None

    later = np.minimum.accumulate(dates[::-1])[::-1]  # the earliest date from here on
    early_march = (dates % 10000 == 301) & (later < dates) & (later // 100 % 100 == 2) & (later % 100 >= 29)
    early_march &= later // 10000 == year
    month = np.where(early_march, 2, month)
    day = np.where(early_march, 29, day)

    # Days are counted on from the first of the month, so that 30 February becomes 1 March (and so does
    # 29 February where the real calendar has none).
    past_february = (month == 2) & (day == 30)
    month = np.where(past_february, 3, month)
    day = np.where(past_february, 1, day)
    first = ((year - 1970) * 12 + month - 1).astype("datetime64[M]").astype("datetime64[D]")
    times = (first + (day - 1)).astype("datetime64[ns]").astype(np.int64)
    times = np.maximum.accumulate(times)

    if interval_hours is not None and 0 < interval_hours < 24:
        place = np.arange(times.size)
        opens = np.concatenate(([True], times[1:] != times[:-1]))
        place -= np.maximum.accumulate(np.where(opens, place, 0))
        hour = 3600 * 10**9
        times = times + np.minimum(place * interval_hours * hour, 24 * hour - 1).astype(np.int64)
    return times.astype("datetime64[ns]")
