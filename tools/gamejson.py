"""JSON as the game writes it, to the byte, so that a file that is loaded and saved again stays as it is.

Four spaces of indentation, no line break at the end. A Python float is a number of 32 bits: the game keeps no more, and
writes it as the double of the same value. The digits of a double are those of the Grisu2 algorithm, which the game's
JSON library uses. They are the shortest ones but for about one number in a thousand, so `repr` would not do.
"""
import functools
import struct

WORD = (1 << 64) - 1  # the algorithm counts in unsigned numbers of 64 bits


def text(value):
    """The text of a file that holds this value."""
    return "".join(pieces(value, "\n"))


def pieces(value, line):
    """The parts of the text of a value; `line` is the line break with the indentation of what surrounds it."""
    if isinstance(value, dict):
        members = [(f"{quoted(key)}: ", member) for key, member in value.items()]
        yield from block("{", members, "}", line)
    elif isinstance(value, (list, tuple)):
        yield from block("[", [("", entry) for entry in value], "]", line)
    elif isinstance(value, str):
        yield quoted(value)
    elif isinstance(value, bool):
        yield "true" if value else "false"
    elif isinstance(value, int):
        yield str(value)
    else:
        yield number(single(value))


def block(start, entries, end, line):
    """The parts of an array or an object; `entries` gives for each entry the text before it, and its value."""
    yield start
    for k, (head, value) in enumerate(entries):
        yield f"{',' if k else ''}{line}    {head}"
        yield from pieces(value, line + "    ")
    yield line + end if entries else end


def quoted(words):
    short = {'"': '\\"', "\\": "\\\\", "\b": "\\b", "\f": "\\f", "\n": "\\n", "\r": "\\r", "\t": "\\t"}
    return '"' + "".join(short.get(c) or (c if c >= " " else f"\\u{ord(c):04X}") for c in words) + '"'


def single(value):
    """The number of 32 bits that is nearest to `value`."""
    return struct.unpack("f", struct.pack("f", value))[0]


@functools.cache
def positive(value):
    """The text of a double above zero."""
    digits, exponent = shortest(value)
    point = len(digits) + exponent
    if 0 <= exponent and point <= 21:
        return digits + "0" * exponent + ".0"
    if 0 < point <= 21:
        return f"{digits[:point]}.{digits[point:]}"
    if -6 < point <= 0:
        return f"0.{'0' * -point}{digits}"
    return f"{digits[0]}{'.' if digits[1:] else ''}{digits[1:]}e{point - 1}"


def number(value):
    """The text of a double."""
    if value == 0:
        return "-0.0" if struct.pack("d", value) != struct.pack("d", 0.0) else "0.0"
    return positive(value) if value > 0 else "-" + positive(-value)


# Grisu2: a number is a pair (f, e) with the value f * 2**e. Products are rounded to 64 bits.


@functools.cache
def power_of_ten(exponent):
    """10**exponent with 64 bits, the nearest."""
    over, under = 10 ** max(exponent, 0), 10 ** max(-exponent, 0)
    shift = over.bit_length() - under.bit_length() - 64
    if (over << max(-shift, 0)) >= (under << max(shift, 0)) << 64:
        shift += 1
    over, under = over << max(-shift, 0), under << max(shift, 0)
    return (2 * over + under) // (2 * under), shift


def product(a, b):
    return (a[0] * b[0] + (1 << 63)) >> 64, a[1] + b[1] + 64


def normalized(f, e):
    shift = 64 - f.bit_length()
    return f << shift, e - shift


def fields(value):
    """Significand and exponent of a double."""
    bits = struct.unpack("Q", struct.pack("d", value))[0]
    significand, exponent = bits & ((1 << 52) - 1), bits >> 52
    return (significand, -1074) if exponent == 0 else (significand | 1 << 52, exponent - 1075)


def boundaries(f, e):
    """The numbers halfway to the doubles below and above, of one exponent."""
    high = normalized(2 * f + 1, e - 1)
    low = (4 * f - 1, e - 2) if f == 1 << 52 else (2 * f - 1, e - 1)
    return (low[0] << (low[1] - high[1]), high[1]), high


def scale_for(exponent):
    """The decimal exponent of the power of ten that brings a number of 64 bits into the reach of the digits."""
    wanted = (-61 - exponent) * 0.30102999566398114 + 347
    whole = int(wanted) + (wanted > int(wanted))
    return -348 + 8 * ((whole >> 3) + 1)


def shortest(value):
    """The digits of a double above zero, and the decimal exponent of the last one."""
    f, e = fields(value)
    low, high = boundaries(f, e)
    scale = scale_for(high[1])
    power = power_of_ten(scale)
    middle, low, high = (product(own, power) for own in (normalized(f, e), low, high))
    top = high[0] - 1
    digits, exponent = generate(top, top - low[0] - 1, top - middle[0], -high[1])
    return digits, exponent - scale


def generate(top, span, distance, bits):
    """Digits of `top`, whose last `bits` bits are its fraction, until what is left is below `span`; `distance` is how far the
    exact number lies below `top`.
    """
    whole, fraction = top >> bits, top & ((1 << bits) - 1)
    digits = ""
    for place in reversed(range(len(str(whole)))):
        digit, whole = divmod(whole, 10 ** place)
        digits += str(digit) if digit or digits else ""
        rest = (whole << bits) + fraction
        if rest <= span:
            return rounded(digits, span, rest, 10 ** place << bits, distance), place
    place = 0
    while True:
        fraction, span, place = fraction * 10, span * 10, place - 1
        digit, fraction = fraction >> bits, fraction & ((1 << bits) - 1)
        digits += str(digit) if digit or digits else ""
        if fraction < span:
            distance = (distance * 10 ** -place if place > -9 else 0) & WORD
            return rounded(digits, span, fraction, 1 << bits, distance), place


def rounded(digits, span, rest, unit, distance):
    """Lowers the last digit as long as this brings the number nearer to the exact one."""
    last = int(digits[-1])
    while rest < distance and span - rest >= unit and (rest + unit < distance or distance - rest > rest + unit - distance):
        last -= 1
        rest += unit
    return digits[:-1] + str(last)
