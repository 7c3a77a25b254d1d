"""The breaking wave on a straight coast and its transport, in double precision."""
import math

from expected_numbers import fixed

PADE = [0.66667, 0.35555, 0.16084, 0.0632, 0.02174, 0.00654, 0.00171, 0.00039, 0.00011]
GRAVITY, PI, GAMMA = 9.806, 3.141593, 0.78
SECONDS_PER_YEAR = 31557600.0


def linear_wave(T, d):
    """Wave number, ratio of group to phase speed, group speed: Hunt's form of the dispersion."""
    x = (6.28318 / T) ** 2 / 9.81 * d
    P = 1.0 + sum(c * x ** (power + 1) for power, c in enumerate(PADE))
    k = math.sqrt(x * (x + 1.0 / P)) / d
    n = 0.5 if 2 * k * d >= 15.0 else 0.5 * (1.0 + 2 * k * d / math.sinh(2 * k * d))
    return k, n, n * 6.28318 / k / T


def breaking_wave(H, T, degrees, depth):
    """Height, angle and group speed at breaking on contours along the baseline."""
    k, n, _ = linear_wave(T, depth)
    angle = math.radians(degrees)
    c = 2 * PI / k / T
    E = c ** 4 * GAMMA ** 2 / (GRAVITY ** 2 * H ** 2 * n)
    Lambda = (math.cos(angle) / E) ** 0.4
    xi = math.sin(angle) ** 2 * Lambda
    lam = Lambda * (1 + 0.1649 * xi + 0.5948 * xi ** 2 - 1.6787 * xi ** 3 + 2.8573 * xi ** 4)
    db = c * c * lam / GRAVITY
    return db * GAMMA, math.asin(math.sin(angle) * math.sqrt(lam)), linear_wave(T, db)[2]


def transport(H, T, degrees, depth, K1=0.4):
    """Q in m3/s on a straight coast: no gradient of the height, so the first term alone."""
    Hb, Zb, Cg = breaking_wave(H, T, degrees, depth)
    return K1 / 37.793171 * Hb ** 2 * Cg * math.sin(2 * Zb)


def last_waves(NX, wave, CONV=1.0):
    """Heights and angles of the last step, on contours and a shoreline along the baseline."""
    Hb, Zb, _ = breaking_wave(*wave)
    lines = ["  LAST TIME STEP. DIFFRACTED WAVES ALONGSHORE"]
    for value in [Hb / CONV, Zb * 180 / PI]:
        row = (NX + 1) * [fixed(value, 7, 2)]
        lines += ["".join(row[n:n + 10]) for n in range(0, NX + 1, 10)]
    return lines


def wave_means(NX, waves, CONV=1.0):
    """Means over the steps of a run: of each wave, and how many steps it acted before the last.
    The last wall has no transport coefficient."""
    steps = sum(count for wave, count in waves)
    height = power = angle = Q = 0.0
    for wave, count in waves:
        Hb, Zb, _ = breaking_wave(*wave)
        height += count / steps * Hb / CONV
        power += count / steps * (Hb / CONV) ** 2.5
        angle += count / steps * Zb * 180 / PI
        Q += count / steps * transport(*wave)
    lines = ["  OUTPUT OF UNDIFFRACTED BREAKING WAVE STATISITCS",
             "  N.B. THESE VALUES ARE NOT SMOOTHED!",
             "   X-COORD.   H-MEAN   H52-MEAN   ZBS-MEAN   ZB-MEAN    HZ-MEAN"]
    for wall in range(1, NX + 2):
        lines.append("     %3d" % wall + 6 * " " + fixed(height, 5, 2) + 4 * " " +
                     fixed(power, 5, 2) + 6 * " " + fixed(angle, 5, 1) + 6 * " " +
                     fixed(angle, 5, 1) + 4 * " " + fixed(Q if wall <= NX else 0.0, 8, 4))
    return lines
