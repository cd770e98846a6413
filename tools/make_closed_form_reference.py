#!/usr/bin/env python3
"""Writes tests/engine/closed_form_reference.txt: states of the closed-form models at the corners
where the textbook formulas lose digits or overflow in double precision. Here they are evaluated as
the textbooks write them, with 400 digits, and by the textbook's own formula where that is singular
(equal constants, a linear equation, a double root).

Usage: python3 tools/make_closed_form_reference.py > tests/engine/closed_form_reference.txt
"""

from mpmath import exp, mp, mpf, sqrt

mp.dps = 400


def E(x):
    """exp, for which mpmath has no limits."""
    return exp(x)


def state(model, k1, k2, A0, B0, C0, P0, Q0, t):
    k1, k2, A0, B0, C0, P0, Q0, t = (mpf(v) for v in (k1, k2, A0, B0, C0, P0, Q0, t))
    cA, cB, cC, cP, cQ = A0, B0, C0, P0, Q0
    if model == 1:
        x = min(k1 * t, A0)
        cA, cP = A0 - x, P0 + x
    elif model == 2:
        x = (1 - E(-k1 * t)) * A0
        cA, cP = A0 - x, P0 + x
    elif model == 3:
        x = (1 - 1 / (2 * k1 * A0 * t + 1)) * A0 / 2
        cA, cP = A0 - 2 * x, P0 + x
    elif model == 4:
        if A0 == B0:
            x = (1 - 1 / (k1 * A0 * t + 1)) * A0
        else:
            u = E(-abs(A0 - B0) * k1 * t)
            low, high = min(A0, B0), max(A0, B0)
            x = low * high * (1 - u) / (high - low * u)
        cA, cB, cP = A0 - x, B0 - x, P0 + x
    elif model in (5, 16):
        u = E(-(P0 + A0) * k1 * t)
        x = P0 * A0 * (1 - u) / (P0 + A0 * u)
        cA, cP = A0 - x, P0 + x
        if model == 16:
            cQ = Q0 + x
    elif model == 6:
        cA = E(-k1 * t) * A0
        if k1 == k2:
            cC = (k1 * A0 * t + C0) * E(-k1 * t)
        else:
            cC = k1 * A0 / (k2 - k1) * (E(-k1 * t) - E(-k2 * t)) + E(-k2 * t) * C0
        cP = A0 - cA - cC + C0 + P0
    elif model == 8:
        x = (k1 * A0 - k2 * P0) * (1 - E(-(k1 + k2) * t)) / (k1 + k2)
        cA, cP = A0 - x, P0 + x
    elif model == 11:
        u = E(-(k1 + k2) * t)
        cA = u * A0
        cP = k1 * A0 / (k1 + k2) * (1 - u) + P0
        cQ = k2 * A0 / (k1 + k2) * (1 - u) + Q0
    else:
        if model == 12:
            a, b = k1 - 4 * k2, k1 * (A0 + B0) + 4 * k2 * P0
            q = k1 * A0 * B0 - k2 * P0**2
        elif model == 17:
            a, b, q = k1, k1 * (A0 + B0) + k2, k1 * A0 * B0 - k2 * P0
        else:
            a, b = k1 - k2, k1 * (A0 + B0) + k2 * (P0 + Q0)
            q = k1 * A0 * B0 - k2 * P0 * Q0
        # dx/dt = a x^2 - b x + q from x = 0
        D2 = b**2 - 4 * a * q
        if a == 0:
            x = q / b * (1 - E(-b * t))
        elif abs(D2) < b**2 * mpf(10) ** -300:
            x = q * t / (1 + b * t / 2)
        else:
            D = sqrt(D2)
            x1, x2 = (b - D) / (2 * a), (b + D) / (2 * a)
            u = E(-D * t)
            x = x1 * x2 * (1 - u) / (x2 - x1 * u)
        cA, cB, cP = A0 - x, B0 - x, P0 + (2 * x if model == 12 else x)
        if model == 19:
            cQ = Q0 + x
    return cA, cB, cC, cP, cQ


TIMES = (1e-9, 0.7, 12.5, 400.0, 1e7, 1e300)
MIXTURES = (
    # A0, B0, C0, P0, Q0
    (1.0, 1.0, 0.0, 0.0, 0.0),
    (1.0, 1.0000000000001, 0.0, 0.002, 0.0),
    (0.5, 2.0, 0.25, 0.125, 0.3),
    (3.0, 0.1, 0.0, 1e-12, 2.0),
    (0.02, 0.01, 1.0, 7.0, 1e-7),
)
SPECIES = {1: "AP", 2: "AP", 3: "AP", 4: "ABP", 5: "AP", 6: "ACP", 8: "AP", 11: "APQ", 12: "ABP",
           16: "APQ", 17: "ABP", 19: "ABPQ"}
CONSTANTS = {
    1: ((0.15, 0.0),),
    2: ((0.15, 0.0), (3e-9, 0.0), (4.7e6, 0.0)),
    3: ((0.15, 0.0), (3e-9, 0.0), (4.7e6, 0.0)),
    4: ((0.15, 0.0), (3e-9, 0.0), (4.7e6, 0.0)),
    5: ((0.15, 0.2), (3e-9, 0.0), (4.7e6, 0.0)),
    6: ((0.15, 0.1), (0.15, 0.15), (0.15, 0.15000000000000002), (0.15, 0.150000001),
        (2e-9, 2e-9), (4.7e6, 4.7e6), (0.15, 1e-10), (1e-10, 0.15), (0.15, 0.0), (1e-9, 3e6)),
    8: ((0.5, 0.1), (0.15, 1e-10), (1e-10, 0.15), (0.3, 0.0), (4.7e6, 3e5)),
    11: ((0.15, 0.05), (0.15, 1e-10), (1e-10, 0.15), (4.7e6, 3e5)),
    12: ((0.15, 0.01), (0.4, 0.1), (0.4, 0.10000000000000002), (0.15, 1e-10), (0.3, 0.0),
         (1e-10, 0.15), (4.7e6, 3e5)),
    16: ((0.15, 0.2), (3e-9, 0.0), (4.7e6, 0.0)),
    17: ((0.15, 0.01), (0.15, 1e-10), (0.3, 0.0), (1e-10, 0.15), (4.7e6, 3e5)),
    19: ((0.15, 0.01), (0.2, 0.2), (0.2, 0.20000000000000004), (0.15, 1e-10), (0.3, 0.0),
         (1e-10, 0.15), (4.7e6, 3e5)),
}


def main():
    print("# Made by tools/make_closed_form_reference.py.")
    print("# model k1 k2 A0 B0 C0 P0 Q0 t: the concentrations of the model's species")
    for model, constants in CONSTANTS.items():
        for k1, k2 in constants:
            for mixture in MIXTURES:
                present = [c if s in SPECIES[model] else 0.0 for s, c in zip("ABCPQ", mixture)]
                for t in TIMES:
                    given = (k1, k2, *present, t)
                    c = dict(zip("ABCPQ", state(model, *given)))
                    print(model, *(f"{v:.17g}" for v in given), end=": ")
                    print(*(mp.nstr(c[s], 18, min_fixed=0, max_fixed=0) for s in SPECIES[model]))


if __name__ == "__main__":
    main()
