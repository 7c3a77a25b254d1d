"""Numbers as the expected files print them: single precision, free format and columns."""
import math
import struct


def f32(x):
    """The nearest single; a sum, product or quotient of singles rounded by it is the single one."""
    return struct.unpack("f", struct.pack("f", x))[0]


def quotient(a, b):
    """Division as the processor does it, by zero too."""
    if b != 0:
        return a / b
    if a == 0 or math.isnan(a):
        return math.nan
    return math.copysign(math.inf, a) * math.copysign(1.0, b)


def text_of(x, reads_back):
    """The fewest digits that read back to the same value, always with a decimal point."""
    if math.isnan(x):
        return "NaN"
    if math.isinf(x):
        return "Infinity" if x > 0 else "-Infinity"
    if x == 0:
        return "-0." if math.copysign(1.0, x) < 0 else "0."
    assert 1e-4 <= abs(x) <= 1e9, x
    for digits in range(1, 18):
        text = "%.*e" % (digits - 1, x)
        if reads_back(float(text)) == x:
            break
    decimals = max(0, digits - 1 - int(text.split("e")[1]))
    text = "%.*f" % (decimals, float(text))
    return text if "." in text else text + "."


def single(x):
    return Number(text_of(f32(x), f32))


def double(x):
    return Number(text_of(x, float))


class Number(str):
    """A number's text in a free-format line."""


def free(*items):
    """A free-format line: a blank, then texts as they stand and numbers behind at least a blank."""
    line = " "
    for item in items:
        number = isinstance(item, (int, Number))
        line += (" " if number and not line.endswith(" ") else "") + str(item)
    return line


def fixed(value, width, decimals, error=1e-6):
    """A value in its columns. Rounding errors of single precision (`error` of the value) must not
    decide its last digit. What does not fit is asterisks."""
    if math.isfinite(value):
        scaled = abs(value) * 10 ** decimals
        assert abs(scaled - math.floor(scaled) - 0.5) > max(1e-4, error * scaled), value
        text = "%*.*f" % (width, decimals, value)
    else:
        text = "%*s" % (width, text_of(value, float))
    return text if len(text) == width else width * "*"


def ten_a_line(texts):
    return ["".join(texts[n:n + 10]) for n in range(0, len(texts), 10)]


def wide(values, error=1e-6):
    """Positions, transports, volumes, factors."""
    return ten_a_line([fixed(v, 11, 2, error) for v in values])


def narrow(values):
    """Heights and angles."""
    return ten_a_line([fixed(v, 7, 2) for v in values])


def cell_numbers(values):
    return ten_a_line(["%7d" % v for v in values])
