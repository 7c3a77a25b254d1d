"""The keywords of the configuration, as the program knows them. keywords.json is written by its build."""

from __future__ import annotations

import json
from dataclasses import dataclass
from functools import cache
from pathlib import Path

TABLE = Path(__file__).with_name("keywords.json")


@dataclass(frozen=True)
class Keyword:
    """`default` is the value of a keyword left out, empty for those of a list that other keywords open.
    `opener` is the keyword whose lines open the records of a list keyword, itself where it is that one.
    A value goes to the n-th record, or `to_last_record`, to the one opened last."""

    name: str
    form: str
    width: int
    default: str
    opener: str
    to_last_record: bool

    @property
    def opens(self) -> bool:
        return self.opener == self.name


@cache
def keywords() -> dict[str, Keyword]:
    return {entry["name"]: Keyword(**entry) for entry in json.loads(TABLE.read_text(encoding="ascii"))}
