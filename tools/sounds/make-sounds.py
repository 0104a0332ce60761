#!/usr/bin/env python3
"""Makes the application's sounds, the WAV files in assets/sounds: 44.1 kHz, mono, 16 bit.

    tools/sounds/make-sounds.py [FOLDER]

They are sums of decaying sine waves, so the same script gives the same bytes everywhere.
"""
import array
import math
import pathlib
import sys
import wave

RATE = 44100  # samples a second
FULL_SCALE = 32767
ATTACK = 0.003  # seconds in which a sound rises, so that it doesn't click
RELEASE = 0.04  # seconds at the end in which what is left of it goes

# Each sound: its length in seconds, its peak of full scale, and its partials, each of them a frequency in Hz, a
# loudness, the seconds in which it falls to a third, and the second at which it is struck.
SOUNDS = {
    # A glass rings in overtones that are no multiples of its note, and two glasses close in pitch make it shimmer.
    # The second stroke, a fourth above, is the softer one.
    "GlassChime": (1.5, 0.5, [
        (1046.5, 1.00, 0.42, 0.00),
        (1049.0, 0.45, 0.40, 0.00),
        (2426.0, 0.40, 0.22, 0.00),
        (4290.0, 0.16, 0.10, 0.00),
        (6650.0, 0.05, 0.05, 0.00),
        (1396.9, 0.62, 0.38, 0.16),
        (1400.2, 0.28, 0.36, 0.16),
        (3239.0, 0.22, 0.18, 0.16),
        (5726.0, 0.07, 0.08, 0.16),
    ]),
    # A knuckle on wood: low, and over at once.
    "Tink": (0.15, 0.4, [
        (392.0, 1.00, 0.028, 0.0),
        (655.0, 0.55, 0.018, 0.0),
        (1130.0, 0.22, 0.009, 0.0),
    ]),
}


def partial_at(time, frequency, loudness, decay, struck):
    since = time - struck
    if since < 0:
        return 0.0
    rise = min(1.0, since / ATTACK)
    return loudness * rise * math.exp(-since / decay) * math.sin(2 * math.pi * frequency * since)


def samples_of(length, peak, partials):
    count = round(length * RATE)
    values = []
    for i in range(count):
        time = i / RATE
        fade = min(1.0, (length - time) / RELEASE)
        values.append(fade * sum(partial_at(time, *partial) for partial in partials))
    scale = peak * FULL_SCALE / max(abs(value) for value in values)
    return array.array("h", (round(value * scale) for value in values))


def write(path, samples):
    if sys.byteorder == "big":
        samples.byteswap()
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(samples.tobytes())


def main():
    root = pathlib.Path(__file__).resolve().parents[2]
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else root / "assets" / "sounds"
    folder.mkdir(parents=True, exist_ok=True)
    for name, description in SOUNDS.items():
        write(folder / f"{name}.wav", samples_of(*description))


if __name__ == "__main__":
    main()
