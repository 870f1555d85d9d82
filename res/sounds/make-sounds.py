#!/usr/bin/env python3
"""Writes the two sounds of the link beside this script: two notes up, two notes down."""
import math
import pathlib
import struct
import wave

RATE = 44100  # samples a second
NOTE = 0.14  # seconds from one note to the next
TAIL = 0.30  # seconds in which a note dies away
PEAK = 0.32  # of full scale

SOUNDS = {
    "656.wav": (587.33, 880.00),  # D5, A5: the link stands
    "657.wav": (659.26, 440.00),  # E5, A4: a phone went away
}


def sample(notes, time):
    value = 0.0
    for index, pitch in enumerate(notes):
        since = time - index * NOTE
        if since < 0:
            continue
        swell = min(1.0, since / 0.008)
        fade = math.exp(-since / (TAIL / 3))
        tone = math.sin(2 * math.pi * pitch * since) + 0.25 * math.sin(4 * math.pi * pitch * since)
        value += PEAK * swell * fade * tone
    return max(-1.0, min(1.0, value))


for name, notes in SOUNDS.items():
    length = int(RATE * (NOTE * (len(notes) - 1) + TAIL))
    close = int(RATE * 0.02)
    frames = bytearray()
    for i in range(length):
        end = min(1.0, (length - i) / close)
        frames += struct.pack("<h", int(32767 * end * sample(notes, i / RATE)))
    with wave.open(str(pathlib.Path(__file__).parent / name), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(bytes(frames))
