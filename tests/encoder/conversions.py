#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Converts a clip with each sample profile and looks whether the result is what the profile says.

    conversions.py TOOL PROFILES_FOLDER    exit status 77 without ffmpeg and ffprobe
"""
import sys
import tempfile
from fractions import Fraction
from pathlib import Path

import programs
import samples

SECONDS = 2
SERIES_SECONDS = 65  # longer than each interval, and a multiple of none but 5

# What Debian's ffmpeg cannot write, in its own words.
EXCEPTIONS = {
    'APE - Lossless Audio': "Requested output format 'ape' is not a suitable output format",
    'Mobile Phone 3GP H263 176x144': "Unknown encoder 'libopencore_amrnb'",
    'Mobile Phone AMR Ringtone': "Unknown encoder 'libopencore_amrnb'",
}


def is_same(name, wanted, found):
    """Rates are told apart from those of the other television standard, shapes by more than rounding to pixels."""
    tolerance = {'rate': Fraction(1, 2000), 'aspect': Fraction(1, 100)}.get(name)
    return found == wanted if tolerance is None or found is None else abs(found / wanted - 1) <= tolerance


def faults_of_file(profile, path):
    """Yields (what, expected, got)."""
    found = programs.look(path)
    wanted = {'video codec': None, 'audio codec': None, **profile.expected(programs.SOURCE)}
    for name, value in wanted.items():
        if not is_same(name, value, found.get(name)):
            yield name, value, found.get(name)
    if not profile.makes_series and not SECONDS * 0.95 <= found['seconds'] <= SECONDS * 1.15:
        yield 'duration', SECONDS, found['seconds']


def faults_of_series(profile, pattern):
    paths = sorted(pattern.parent.glob(pattern.name.replace('%03d', '*')))
    if len(paths) != profile.pictures(SERIES_SECONDS):
        yield f'pictures of {SERIES_SECONDS} seconds', profile.pictures(SERIES_SECONDS), len(paths)
    for path in paths[:1]:
        yield from faults_of_file(profile, path)


def faults(tool, profile, clips, folder):
    output, refusal = tool.convert(profile, clips[profile.makes_series], folder)
    reason = EXCEPTIONS.get(profile.id)
    if reason is not None:
        if not refusal:
            yield 'exception', reason, 'converted: it is none any more'
        elif reason not in refusal:
            yield 'exception', reason, refusal
    elif refusal:
        yield 'conversion', 'an output', refusal
    else:
        yield from (faults_of_series if profile.makes_series else faults_of_file)(profile, output)


def main(tool_path, profiles_folder):
    programs.skip_without_encoder()
    tool = programs.Tool(tool_path, profiles_folder)
    profiles = samples.read_all(Path(profiles_folder))
    bad = 0
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        clips = [programs.make_clip(folder / 'clip.nut', SECONDS, sounds=programs.NOISE),
                 programs.make_clip(folder / 'long.nut', SERIES_SECONDS, rate=2)]
        for profile in profiles:
            found = list(faults(tool, profile, clips, folder))
            bad += bool(found)
            for what, wanted, got in found:
                print(f'{profile.id}: {what}: expected {wanted}, got {got}', flush=True)
    print(f'{len(profiles)} profiles, {len(EXCEPTIONS)} exceptions, {bad} with faults')
    return 1 if bad or not profiles else 0


if __name__ == '__main__':
    sys.exit(main(*sys.argv[1:]))
