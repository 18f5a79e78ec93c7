#!/usr/bin/env python3
"""Makes the three sounds beside this script: mono wave files of 16 bits.
Usage: share/sounds/make_sounds.py   (only after a change of the notes: the build embeds the wave files)"""
import math, pathlib, struct

RATE = 22050  # samples a second

# Notes of a sound: start and length in seconds, frequency in Hz, loudness from 0 to 1.
SOUNDS = {
    # a short tap
    "NIMClick.wav": [(0, 0.03, 1900, 0.35), (0.002, 0.02, 3100, 0.15)],
    # a rising chord: the work is done
    "Complete.wav": [(0, 0.5, 523.25, 0.3), (0.11, 0.5, 659.26, 0.3), (0.22, 0.7, 783.99, 0.3)],
    # two falling notes: a window closes
    "ir_end.wav": [(0, 0.25, 587.33, 0.3), (0.09, 0.35, 440, 0.3)],
}


def level(notes, time):
    """The sum of the notes at a time; each fades out and has a weaker octave above it."""
    total = 0.0
    for start, length, frequency, loudness in notes:
        since = time - start
        if since < 0 or since > length:
            continue
        attack = min(1.0, since / 0.004)
        decay = math.exp(-5 * since / length)
        angle = 2 * math.pi * frequency * since
        total += loudness * attack * decay * (math.sin(angle) + 0.25 * math.sin(2 * angle)) / 1.25
    return max(-1.0, min(1.0, total))


def wave_file(notes):
    count = int(max(start + length for start, length, _, _ in notes) * RATE)
    data = struct.pack(f"<{count}h", *(int(level(notes, i / RATE) * 32000) for i in range(count)))
    form = struct.pack("<4sIHHIIHH", b"fmt ", 16, 1, 1, RATE, 2 * RATE, 2, 16)  # PCM, one channel
    return b"RIFF" + struct.pack("<I", 36 + len(data)) + b"WAVE" + form + b"data" + struct.pack("<I", len(data)) + data


for name, notes in SOUNDS.items():
    (pathlib.Path(__file__).parent / name).write_bytes(wave_file(notes))
