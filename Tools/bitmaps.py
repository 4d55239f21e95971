#!/usr/bin/env python3
"""Draws the library's bitmaps and writes them as source.

usage: bitmaps.py write            writes KVUtils/Source/resources/detail/Bitmaps.{h,cpp}
       bitmaps.py sheet FILE.png   writes a contact sheet of all bitmaps, normal and greyed, both sizes

A drawing is a function below that paints shapes on a field of 20 x 20 units, later ones over earlier ones. Each
is rastered twice, at its own size and at twice that for screens of high density, with 4 x 4 samples a pixel.
KVUtils/Source/controls/detail/ButtonTables.h lists the bitmaps and their numbers.
"""

import math
import pathlib
import re
import struct
import sys
import zlib

TREE = pathlib.Path(__file__).resolve().parent.parent
TABLE = TREE / "KVUtils/Source/controls/detail/ButtonTables.h"
TARGET = TREE / "KVUtils/Source/resources/detail"
FIELD = 20
SAMPLES = 4
CLEAR = (0, 0, 0, 0)
# Pixels a side where it is not 20.
SIDES = {"waitvis": 40, "vindr100": 100}

INK = (0x2F, 0x3B, 0x4A)
GREY = (0x8A, 0x96, 0xA4)
PALE = (0xD5, 0xDE, 0xE8)
WHITE = (0xFF, 0xFF, 0xFF)
BLUE = (0x2A, 0x6F, 0xB8)
SKY = (0x9C, 0xC8, 0xEE)
GREEN = (0x2B, 0x8F, 0x55)
RED = (0xC6, 0x36, 0x2C)
AMBER = (0xF0, 0xB0, 0x3C)
STRAW = (0xFF, 0xD8, 0x80)
BROWN = (0x9A, 0x62, 0x1B)


class Drawing:
    """Shapes in units of the field: a box, a test whether a point lies inside, a colour."""

    def __init__(self):
        self.shapes = []

    def add(self, x0, y0, x1, y1, inside, colour):
        self.shapes.append(((x0, y0, x1, y1), inside, colour))

    def rect(self, x0, y0, x1, y1, colour):
        self.add(x0, y0, x1, y1, lambda x, y: True, colour)

    def box(self, x0, y0, x1, y1, fill, edge=INK, width=1.5):
        """A filled box with an edge inside its limits."""
        self.rect(x0, y0, x1, y1, edge)
        self.rect(x0 + width, y0 + width, x1 - width, y1 - width, fill)

    def ellipse(self, cx, cy, rx, ry, colour):
        self.add(cx - rx, cy - ry, cx + rx, cy + ry,
                 lambda x, y: ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1, colour)

    def circle(self, cx, cy, r, colour, edge=None, width=1.5):
        if edge:
            self.ellipse(cx, cy, r, r, edge)
            r -= width
        self.ellipse(cx, cy, r, r, colour)

    def ring(self, cx, cy, r, width, colour):
        self.add(cx - r, cy - r, cx + r, cy + r,
                 lambda x, y: (r - width) ** 2 <= (x - cx) ** 2 + (y - cy) ** 2 <= r * r, colour)

    def polygon(self, points, colour):
        edges = list(zip(points, points[1:] + points[:1]))

        def inside(x, y):
            odd = False
            for (ax, ay), (bx, by) in edges:
                if (ay > y) != (by > y) and x < ax + (y - ay) * (bx - ax) / (by - ay):
                    odd = not odd
            return odd

        xs, ys = zip(*points)
        self.add(min(xs), min(ys), max(xs), max(ys), inside, colour)

    def line(self, points, colour=INK, width=1.5):
        """A line through the points, with round ends."""
        half = width / 2
        for (ax, ay), (bx, by) in zip(points, points[1:]):
            dx, dy = bx - ax, by - ay
            length = dx * dx + dy * dy

            def inside(x, y, ax=ax, ay=ay, dx=dx, dy=dy, length=length):
                t = max(0, min(1, ((x - ax) * dx + (y - ay) * dy) / length))
                return (x - ax - t * dx) ** 2 + (y - ay - t * dy) ** 2 <= half * half

            self.add(min(ax, bx) - half, min(ay, by) - half, max(ax, bx) + half, max(ay, by) + half, inside, colour)

    def outlined(self, points, fill, edge=INK, width=1.5):
        self.polygon(points, fill)
        self.line(points + points[:1], edge, width)

    def raster(self, side):
        """Rows of RGBA pixels."""
        grid = side * SAMPLES
        unit = FIELD / grid
        samples = [None] * (grid * grid)
        for (x0, y0, x1, y1), inside, colour in self.shapes:
            for j in range(max(0, int(y0 / unit) - 1), min(grid, int(y1 / unit) + 2)):
                y = (j + 0.5) * unit
                if not y0 <= y <= y1:
                    continue
                for i in range(max(0, int(x0 / unit) - 1), min(grid, int(x1 / unit) + 2)):
                    x = (i + 0.5) * unit
                    if x0 <= x <= x1 and inside(x, y):
                        samples[j * grid + i] = colour
        return [[self.mean(samples, grid, x, y) for x in range(side)] for y in range(side)]

    @staticmethod
    def mean(samples, grid, x, y):
        hit = [c for j in range(SAMPLES) for c in
               samples[(y * SAMPLES + j) * grid + x * SAMPLES:(y * SAMPLES + j) * grid + (x + 1) * SAMPLES] if c]
        if not hit:
            return CLEAR
        # Sixteenths are finer than an eye sees, and keep the palettes short.
        coarse = [round(sum(c[k] for c in hit) / len(hit) / 17) * 17 if len(set(hit)) > 1 else hit[0][k] for k in range(3)]
        return (*coarse, round(len(hit) * 15 / SAMPLES ** 2) * 17)


# ----------------------------------------------------------------------------------------------- drawings


def page(d, x0=4, y0=2, x1=16, y1=18, fold=4):
    d.outlined([(x0 + .75, y0 + .75), (x1 - fold, y0 + .75), (x1 - .75, y0 + fold), (x1 - .75, y1 - .75), (x0 + .75, y1 - .75)], WHITE)
    d.line([(x1 - fold, y0 + .75), (x1 - fold, y0 + fold), (x1 - .75, y0 + fold)])


def lines(d, x0, x1, *rows):
    for y in rows:
        d.rect(x0, y, x1, y + 1, GREY)


def plus(d, cx=14.5, cy=14.5):
    d.circle(cx, cy, 4.5, GREEN)
    d.rect(cx - 2.75, cy - .75, cx + 2.75, cy + .75, WHITE)
    d.rect(cx - .75, cy - 2.75, cx + .75, cy + 2.75, WHITE)


def cross(d, cx=14.5, cy=14.5):
    d.circle(cx, cy, 4.5, RED)
    for s in (-1, 1):
        d.line([(cx - 1.8, cy - 1.8 * s), (cx + 1.8, cy + 1.8 * s)], WHITE)


def star(cx, cy, r, inner, points=5):
    return [(cx + (r if k % 2 == 0 else inner) * math.sin(math.pi * k / points),
             cy - (r if k % 2 == 0 else inner) * math.cos(math.pi * k / points)) for k in range(2 * points)]


def arrow(d, points, colour=BLUE, width=2.5, head=3.5):
    """A straight arrow from the first to the second point."""
    (ax, ay), (bx, by) = points
    length = math.hypot(bx - ax, by - ay)
    ux, uy = (bx - ax) / length, (by - ay) / length
    nx, ny = bx - ux * head, by - uy * head
    px, py = -uy * width / 2, ux * width / 2
    d.polygon([(ax + px, ay + py), (nx + px, ny + py), (nx - px, ny - py), (ax - px, ay - py)], colour)
    d.polygon([(bx, by), (nx - uy * head, ny + ux * head), (nx + uy * head, ny - ux * head)], colour)


def database(d, x0=3, y0=2, x1=17, y1=18):
    cx, rx, ry = (x0 + x1) / 2, (x1 - x0) / 2, 2.75
    d.ellipse(cx, y1 - ry, rx, ry, INK)
    d.rect(x0, y0 + ry, x1, y1 - ry, INK)
    d.rect(x0 + 1.5, y0 + ry, x1 - 1.5, y1 - ry, SKY)
    d.ellipse(cx, y1 - ry, rx - 1.5, ry - 1.25, SKY)
    d.ellipse(cx, (y0 + y1) / 2, rx, ry, INK)
    d.ellipse(cx, (y0 + y1) / 2 - 1.25, rx - 1.5, ry - .75, SKY)
    d.rect(x0 + 1.5, y0 + ry, x1 - 1.5, (y0 + y1) / 2 - 1.2, SKY)
    d.ellipse(cx, y0 + ry, rx, ry, INK)
    d.ellipse(cx, y0 + ry, rx - 1.5, ry - 1.25, WHITE)


def folder(d):
    d.polygon([(2, 4), (8, 4), (10, 6), (17, 6), (17, 17), (2, 17)], INK)
    d.polygon([(3.5, 5.5), (7.4, 5.5), (9.4, 7.5), (15.5, 7.5), (15.5, 15.5), (3.5, 15.5)], AMBER)


def can(d, level):
    d.rect(3, 4, 15, 17, INK)
    d.ellipse(9, 17, 6, 2, INK)
    d.rect(4.5, 4, 13.5, 16.5, PALE)
    d.rect(4.5, level, 13.5, 16.5, BLUE)
    d.ellipse(9, 16.5, 4.5, 1.2, BLUE)
    d.ellipse(9, 4, 6, 2.2, INK)
    d.ellipse(9, 4, 4.5, 1, WHITE)


def triangle(d, tip, back, colour=BLUE):
    d.polygon([(tip, 10), (back, 4), (back, 16)], colour)


def vee(d):
    d.circle(10, 10, 9, BLUE)
    d.line([(5.5, 6), (10, 14.5)], WHITE, 2.6)
    d.line([(10, 14.5), (14.5, 6)], STRAW, 2.6)


def magnifier(d):
    d.line([(12.3, 12.3), (17, 17)], BROWN, 3)
    d.circle(8.5, 8.5, 6.25, WHITE, INK, 1.75)
    d.ring(8.5, 8.5, 4.5, 1.5, SKY)


def eye(d):
    for r, colour in ((0, INK), (1.5, WHITE)):
        d.add(1, 4, 19, 16, lambda x, y, r=r: (x - 10) ** 2 + (y - 15.5) ** 2 <= (10.5 - r) ** 2
              and (x - 10) ** 2 + (y - 4.5) ** 2 <= (10.5 - r) ** 2, colour)
    d.circle(10, 10, 3.75, BLUE)
    d.circle(10, 10, 1.75, INK)


def gear(d):
    for k in range(8):
        angle = math.pi * k / 4
        x, y = math.sin(angle), math.cos(angle)
        d.line([(10 + 4 * x, 10 + 4 * y), (10 + 7 * x, 10 + 7 * y)], INK, 3)
    d.circle(10, 10, 6, INK)
    d.circle(10, 10, 4.5, PALE)
    d.circle(10, 10, 2.5, INK)
    d.circle(10, 10, 1, WHITE)


def pencil(d):
    d.polygon([(3, 17), (4.5, 12), (13, 3.5), (16.5, 7), (8, 15.5)], INK)
    d.polygon([(5.7, 12.5), (12.2, 6), (14, 7.8), (7.5, 14.3)], AMBER)
    d.polygon([(13, 5.2), (13.4, 4.8), (15.2, 6.6), (14.8, 7)], RED)
    d.rect(9, 16.5, 17, 17.75, GREY)


def trash(d):
    d.rect(7.5, 2, 12.5, 4, INK)
    d.rect(3, 3.5, 17, 5.5, INK)
    d.polygon([(4.5, 6.5), (15.5, 6.5), (14.7, 18), (5.3, 18)], INK)
    d.polygon([(6.1, 8), (13.9, 8), (13.3, 16.5), (6.7, 16.5)], PALE)
    for x in (8, 11):
        d.rect(x, 9.5, x + 1.25, 15, INK)


def printer(d):
    d.box(5, 2, 15, 9, WHITE)
    d.rect(2, 7, 18, 14, INK)
    d.rect(3.5, 8.5, 16.5, 12.5, PALE)
    d.rect(13.5, 9.5, 15.5, 11, GREEN)
    d.box(5, 11.5, 15, 18, WHITE)
    lines(d, 7.5, 12.5, 13.75, 15.5)


def tray(d):
    d.polygon([(2, 11), (4, 11), (4, 16), (16, 16), (16, 11), (18, 11), (18, 18), (2, 18)], INK)


def disk(d):
    d.polygon([(2, 2), (15, 2), (18, 5), (18, 18), (2, 18)], INK)
    d.polygon([(3.5, 3.5), (14.4, 3.5), (16.5, 5.6), (16.5, 16.5), (3.5, 16.5)], BLUE)
    d.rect(6, 3.5, 13, 8, PALE)
    d.rect(10, 4.25, 12, 7.25, INK)
    d.rect(5, 11, 15, 16.5, WHITE)
    lines(d, 6.5, 13.5, 12.5, 14.5)


def calculator(d):
    d.box(3, 2, 17, 18, PALE)
    d.rect(6, 4.75, 14, 8, GREEN)
    for y in (9.5, 12, 14.5):
        for x, colour in ((6, INK), (9, INK), (12, BLUE if y < 14 else RED)):
            d.rect(x, y, x + 2, y + 1.5, colour)


def envelope(d):
    d.box(2, 4, 18, 16, WHITE)
    d.line([(2.75, 5), (10, 11.5), (17.25, 5)])
    d.line([(3, 15), (7.5, 10)], GREY, 1)
    d.line([(17, 15), (12.5, 10)], GREY, 1)


def measure(d):
    d.polygon([(5, 2), (15, 2), (15, 7), (12.5, 10), (7.5, 10), (5, 7)], INK)
    d.polygon([(6.5, 3.5), (13.5, 3.5), (13.5, 6.5), (11.8, 8.5), (8.2, 8.5), (6.5, 6.5)], PALE)
    d.polygon([(9, 10), (11, 10), (13, 15), (7, 15)], AMBER)
    for x, colour in ((2, RED), (6, AMBER), (10, GREEN), (14, BLUE)):
        d.rect(x, 15, x + 4, 18, colour)


def info(d):
    d.circle(10, 10, 8.5, BLUE)
    d.circle(10, 6, 1.5, WHITE)
    d.rect(8.75, 8.75, 11.25, 15, WHITE)


def hourglass(d):
    d.polygon([(5, 3), (15, 3), (15, 5), (11, 10), (15, 15), (15, 17), (5, 17), (5, 15), (9, 10), (5, 5)], INK)
    d.polygon([(6, 3), (14, 3), (14, 4.7), (10.2, 9.5), (10.2, 10.5), (14, 15.3), (14, 17), (6, 17), (6, 15.3), (9.8, 10.5), (9.8, 9.5), (6, 4.7)], WHITE)
    d.polygon([(7.2, 6.2), (12.8, 6.2), (10.2, 9.5), (9.8, 9.5)], AMBER)
    d.rect(9.75, 9.5, 10.25, 14, AMBER)
    d.polygon([(10, 12.8), (13.6, 15.4), (13.6, 17), (6.4, 17), (6.4, 15.4)], AMBER)
    d.rect(3.5, 1.5, 16.5, 3.25, BROWN)
    d.rect(3.5, 16.75, 16.5, 18.5, BROWN)


def digits(d):
    d.box(2, 3, 18, 17, WHITE)
    d.line([(4.5, 7.75), (6, 6.75), (6, 13.25)], BLUE)
    d.line([(8.75, 7.5), (10, 6.75), (11, 7.75), (8.5, 13.25), (11.25, 13.25)], BLUE, 1.3)
    d.line([(13.25, 6.75), (15.5, 6.75), (14.2, 9.4), (15.6, 11.2), (14.8, 13.2), (13.2, 13.25)], BLUE, 1.3)


def cup(d):
    d.polygon([(4, 2), (16, 2), (16, 3.5), (12, 11), (8, 11), (4, 3.5)], INK)
    d.polygon([(6.2, 4), (13.8, 4), (11, 9.5), (9, 9.5)], SKY)
    d.rect(9.4, 11, 10.6, 13.5, BLUE)
    d.polygon([(10, 12), (12.4, 16), (7.6, 16)], BLUE)
    d.circle(10, 16, 2.5, BLUE)


def select_all(d):
    for k in range(4):
        for a in (2, 16.5):
            d.rect(2 + 4.5 * k, a, min(4.5 + 4.5 * k, 18), a + 1.5, INK)
            d.rect(a, 2 + 4.5 * k, a + 1.5, min(4.5 + 4.5 * k, 18), INK)
    for y in (5.5, 9, 12.5):
        d.rect(5.5, y, 14.5, y + 2, BLUE)


def group(d):
    d.outlined([(2.75, 2.75), (17.25, 2.75), (17.25, 17.25), (2.75, 17.25)], PALE, GREY)
    d.rect(5, 5, 9.5, 9.5, RED)
    d.rect(10.5, 5, 15, 9.5, AMBER)
    d.rect(5, 10.5, 9.5, 15, GREEN)
    d.rect(10.5, 10.5, 15, 15, BLUE)


def switch(d):
    d.circle(6.5, 10, 5, INK)
    d.circle(13.5, 10, 5, INK)
    d.rect(6.5, 5, 13.5, 15, INK)
    d.circle(6.5, 10, 3.5, GREEN)
    d.circle(13.5, 10, 3.5, GREEN)
    d.rect(6.5, 6.5, 13.5, 13.5, GREEN)
    d.circle(13.25, 10, 3, WHITE)


def close(d):
    d.polygon([(3, 2), (13, 2), (13, 18), (3, 18)], INK)
    d.rect(4.5, 3.5, 11.5, 16.5, PALE)
    d.polygon([(4.5, 3.5), (9, 5.5), (9, 18.5), (4.5, 16.5)], BROWN)
    d.circle(7.75, 11, .9, AMBER)
    arrow(d, [(10.5, 10), (18.75, 10)], GREEN, 2.5, 3.75)


def open_folder(d):
    d.polygon([(2, 3), (7.5, 3), (9.5, 5), (15, 5), (15, 16), (2, 16)], INK)
    d.polygon([(3.5, 4.5), (7, 4.5), (9, 6.5), (13.5, 6.5), (13.5, 15), (3.5, 15)], AMBER)
    d.polygon([(5, 8), (19.5, 8), (15.75, 17), (1.75, 17)], INK)
    d.polygon([(6.1, 9.5), (17.3, 9.5), (14.8, 15.5), (3.7, 15.5)], STRAW)


def white_tile(d):
    d.box(2, 2, 18, 18, GREY)
    d.circle(10, 10, 5.5, WHITE, INK, 1.25)


def combination(d):
    d.circle(7, 10, 5.5, AMBER)
    d.circle(13, 10, 5.5, SKY)
    d.add(7.5, 4, 12.5, 16, lambda x, y: (x - 7) ** 2 + (y - 10) ** 2 <= 30.25
          and (x - 13) ** 2 + (y - 10) ** 2 <= 30.25, GREEN)
    for x in (7, 13):
        d.ring(x, 10, 5.75, 1.25, INK)


def sort(d):
    for k, length in enumerate((3, 5, 7, 9)):
        d.rect(2, 3 + 4 * k, 2 + length, 5.25 + 4 * k, INK)
    arrow(d, [(15, 2.5), (15, 18)], BLUE, 2.25, 3.5)


def paper_format(d):
    page(d, 2, 2, 13, 15, 4)
    d.line([(3, 17.5), (12, 17.5)], BLUE, 1.25)
    d.line([(16, 3), (16, 14)], BLUE, 1.25)
    for points in ([(2, 17.5), (4.5, 15.75), (4.5, 19.25)], [(13, 17.5), (10.5, 15.75), (10.5, 19.25)],
                   [(16, 2), (14.25, 4.5), (17.75, 4.5)], [(16, 15), (14.25, 12.5), (17.75, 12.5)]):
        d.polygon(points, BLUE)


def databases(d):
    database(d, 7, 1.5, 18, 12.5)
    database(d, 2, 7, 13, 18.5)


def new_page(d):
    page(d)
    d.polygon(star(14, 6.5, 5.75, 2.2, 8), AMBER)
    d.polygon(star(14, 6.5, 2.5, 1.5, 8), WHITE)


DRAWINGS = {
    "waitvis": [hourglass],
    "icoappen": [lambda d: (page(d, 2, 2, 14, 18), lines(d, 5, 10.5, 7, 10, 13)), plus],
    "icowrite": [disk],
    "icovisko": [cup],
    "icodb": [database],
    "icoshow": [eye],
    "icoweiss": [white_tile],
    "icocombi": [combination],
    "arrow_l": [lambda d: triangle(d, 5, 14)],
    "arrow_r": [lambda d: triangle(d, 15, 6)],
    "end_l": [lambda d: triangle(d, 6, 15), lambda d: d.rect(4, 4, 6, 16, INK)],
    "end_r": [lambda d: triangle(d, 14, 5), lambda d: d.rect(14, 4, 16, 16, INK)],
    "arrow_ll": [lambda d: (triangle(d, 2, 10), triangle(d, 10, 18))],
    "arrow_rr": [lambda d: (triangle(d, 10, 2), triangle(d, 18, 10))],
    "icoabort": [lambda d: (d.line([(4, 4), (16, 16)], RED, 3.25), d.line([(16, 4), (4, 16)], RED, 3.25))],
    "icoclose": [close],
    "icook": [lambda d: d.line([(3.5, 10.5), (8, 15), (16.5, 5)], GREEN, 3.25)],
    "icoopen": [open_folder],
    "icosearc": [magnifier],
    "icoinfo": [info],
    "iconeu": [new_page],
    "icoedit": [pencil],
    "icoprint": [printer],
    "icoimprt": [tray, lambda d: arrow(d, [(10, 2), (10, 14)], GREEN, 3, 4.5)],
    "icoexprt": [tray, lambda d: arrow(d, [(10, 14), (10, 1.5)], BLUE, 3, 4.5)],
    "icodel": [trash],
    "icomess": [measure],
    "icovind": [vee],
    "icoslall": [select_all],
    "icosetup": [gear],
    "iconext": [lambda d: d.circle(10, 10, 8.5, GREEN), lambda d: arrow(d, [(4.5, 10), (16, 10)], WHITE, 2.5, 4.25)],
    "icorech": [calculator],
    "icosort": [sort],
    "icopap": [page, lambda d: lines(d, 6.5, 13.5, 8, 10.5, 13)],
    "icopapfm": [paper_format],
    "iconum": [digits],
    "icorstof": [lambda d: can(d, 11)],
    "icorstzu": [lambda d: can(d, 9), plus],
    "vindr100": [vee],
    "vindar20": [vee],
    "icoorneu": [folder, plus],
    "icoordel": [folder, cross],
    "icodb2": [databases],
    "icodbneu": [lambda d: database(d, 2, 2, 14, 17), plus],
    "icodbdel": [lambda d: database(d, 2, 2, 14, 17), cross],
    "ico_favo": [lambda d: d.outlined(star(10, 10.6, 8.3, 3.5), AMBER, BROWN, 1.25)],
    "icomail": [envelope],
    "icogroup": [group],
    "icoenabl": [switch],
}


def records():
    """(record, name), ascending."""
    table = TABLE.read_text().split("BitmapTable", 1)[1]
    rows = [(int(number), name) for number, name in re.findall(r'\{(\d+), "(\w+)\.bmp"\}', table)]
    if {name for _, name in rows} != set(DRAWINGS):
        sys.exit(f"bitmaps.py: drawn and listed differ: {sorted({name for _, name in rows} ^ set(DRAWINGS))}")
    return rows


def rastered(name, factor):
    drawing = Drawing()
    for part in DRAWINGS[name]:
        part(drawing)
    return drawing.raster(SIDES.get(name, FIELD) * factor)


# ------------------------------------------------------------------------------------------------- source

LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"
NOTE = "// Written by Tools/bitmaps.py, which draws them; not edited by hand.\n"

HEADER = """// The pictures of the library, as the program holds them.
{note}#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kv::detail {{

/// A square picture in two sizes. Each run of pixels, row by row from the top, is two letters of the base 64
/// alphabet: the colour's place in the palette, and the run's length less one.
struct EncodedBitmap {{
    unsigned short record;
    std::int16_t side;
    std::span<std::uint32_t const> palette;  // 0xRRGGBBAA
    std::string_view runs;
    std::string_view fineRuns;  // of the picture with twice the side
}};

/// Ascending by record.
[[nodiscard]] std::span<EncodedBitmap const> EncodedBitmaps() noexcept;

}}  // namespace kv::detail
"""


def distance(a, b):
    return sum((p - q) ** 2 for p, q in zip(a, b))


def palette_of(pixels):
    """The colours, at most 64, and the colour that each pixel gets; rare colours become their nearest neighbour."""
    counts = {}
    for pixel in pixels:
        counts[pixel] = counts.get(pixel, 0) + 1
    kept = sorted(counts, key=lambda c: (-counts[c], c))[:len(LETTERS)]
    return kept, {pixel: min(range(len(kept)), key=lambda i: (distance(kept[i], pixel), i)) for pixel in counts}


def encode(rows, place):
    text, pixels = [], [place[pixel] for row in rows for pixel in row]
    start = 0
    for i in range(1, len(pixels) + 1):
        if i == len(pixels) or pixels[i] != pixels[start] or i - start == len(LETTERS):
            text.append(LETTERS[pixels[start]] + LETTERS[i - start - 1])
            start = i
    return "".join(text)


def quoted(text, width=96):
    return "\n".join(f'     "{text[i:i + width]}"' for i in range(0, len(text), width))


def write():
    palettes, entries = [], []
    for record, name in records():
        coarse, fine = rastered(name, 1), rastered(name, 2)
        kept, place = palette_of([pixel for row in coarse + fine for pixel in row])
        numbers = ["0x%02X%02X%02X%02X" % colour for colour in kept]
        rows = ",\n    ".join(", ".join(numbers[i:i + 8]) for i in range(0, len(numbers), 8))
        palettes.append(f"constexpr std::uint32_t Palette{record}[] = {{  // {name}\n    {rows}}};\n")
        entries.append(f"    {{{record}, {len(coarse)}, Palette{record},\n{quoted(encode(coarse, place))},\n{quoted(encode(fine, place))}}},\n")
    TARGET.mkdir(exist_ok=True)
    (TARGET / "Bitmaps.h").write_text(HEADER.format(note=NOTE))
    (TARGET / "Bitmaps.cpp").write_text(
        NOTE + '#include "KVUtils/Source/resources/detail/Bitmaps.h"\n\nnamespace kv::detail {\n\n// clang-format off\nnamespace {\n\n'
        + "".join(palettes) + "\nconstexpr EncodedBitmap Pictures[] = {\n" + "".join(entries)
        + "};\n\n}  // namespace\n// clang-format on\n\n"
        "std::span<EncodedBitmap const> EncodedBitmaps() noexcept { return Pictures; }\n\n}  // namespace kv::detail\n")


# -------------------------------------------------------------------------------------------------- sheet


def greyed(rows, grain):
    """The greyed form, for disabled buttons."""
    ground = rows[0][0]
    mean = lambda p: (sum(p[:3]) // 3,) * 3 + p[3:]
    return [[ground if p == ground or (x // grain % 2 and y // grain % 2) else mean(p) for x, p in enumerate(row)]
            for y, row in enumerate(rows)]


def sheet(path):
    columns, cell_x, cell_y = 7, 150, 64
    drawn = [(name, rastered(name, 1), rastered(name, 2)) for _, name in records() if SIDES.get(name, FIELD) == FIELD]
    large = [(name, rastered(name, 1), None) for _, name in records() if SIDES.get(name, FIELD) != FIELD]
    height = cell_y * -(-len(drawn) // columns) + 110
    picture = [[(0xF0, 0xF0, 0xF0)] * (columns * cell_x) for _ in range(height)]

    def paste(x, y, rows):
        for j, row in enumerate(rows):
            for i, p in enumerate(row):
                under = picture[y + j][x + i]
                picture[y + j][x + i] = tuple((p[k] * p[3] + under[k] * (255 - p[3])) // 255 for k in range(3))

    for index, (_, coarse, fine) in enumerate(drawn):
        x, y = index % columns * cell_x + 6, index // columns * cell_y + 6
        paste(x, y, coarse)
        paste(x, y + 26, greyed(coarse, 1))
        paste(x + 28, y, fine)
        paste(x + 76, y, greyed(fine, 2))
    x = 6
    for _, coarse, _ in large:
        paste(x, height - 106, coarse)
        x += len(coarse) + 10
    raw = b"".join(b"\0" + bytes(channel for pixel in row for channel in pixel) for row in picture)

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    size = struct.pack(">IIBBBBB", columns * cell_x, height, 8, 2, 0, 0, 0)
    pathlib.Path(path).write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", size) + chunk(b"IDAT", zlib.compress(raw)) + chunk(b"IEND", b""))


if __name__ == "__main__":
    if sys.argv[1:] == ["write"]:
        write()
    elif len(sys.argv) == 3 and sys.argv[1] == "sheet":
        sheet(sys.argv[2])
    else:
        sys.exit(__doc__)
