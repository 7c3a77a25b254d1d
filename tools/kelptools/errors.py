"""What can go wrong, told to the user in one line."""


class KelpError(Exception):
    """The message is one line and names the file or value that is at fault."""


class KelpWarning(UserWarning):
    """Something is amiss, but the result can be used."""
