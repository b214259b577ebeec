# SPDX-License-Identifier: MIT
"""The programs that the tests start: the tool, ffmpeg and ffprobe."""
import json
import re
import shutil
import subprocess
import sys
from fractions import Fraction

SKIPPED = 77
# Nothing that a profile asks for, so that whatever the encoder takes from its input shows.
SOURCE = {'size': '336x252', 'rate': 18, 'sample rate': '37800', 'channels': 2}
MOVING = 'testsrc2=s=336x252:r={rate}:d={seconds},noise=alls=40:allf=t'
STILL = 'testsrc2=s=336x252:r={rate}:d={seconds},loop=loop=-1:size=1,trim=duration={seconds}'
NOISE = ['anoisesrc=r=37800:d={seconds}:a=0.2:seed=1', 'anoisesrc=r=37800:d={seconds}:a=0.2:seed=2']
TONES = ['sine=f=440:r=37800:d={seconds}', 'sine=f=550:r=37800:d={seconds}']


def skip_without_encoder():
    missing = [name for name in ('ffmpeg', 'ffprobe') if not shutil.which(name)]
    if missing:
        print('Skipped: not installed:', ', '.join(missing))
        sys.exit(SKIPPED)


def make_clip(path, seconds, picture=MOVING, sounds=(), rate=SOURCE['rate']):
    command = ['ffmpeg', '-v', 'error', '-y']
    for source in (picture, *sounds):
        command += ['-f', 'lavfi', '-i', source.format(seconds=seconds, rate=rate)]
    if sounds:
        command += ['-filter_complex', '[1][2]join=inputs=2:channel_layout=stereo[a]', '-map', '0:v', '-map', '[a]']
    subprocess.run([*command, '-c:v', 'rawvideo', '-pix_fmt', 'yuv420p', '-c:a', 'pcm_s16le', path], check=True)
    return path


class Tool:
    def __init__(self, program, folder):
        self.program, self.folder = program, folder

    def run(self, command, profile, *arguments):
        call = [self.program, '--folder', self.folder, command, profile.id, *arguments]
        return subprocess.run(call, capture_output=True, text=True)

    def convert(self, profile, clip, folder):
        """The output's path, and the tool's words when it failed."""
        number = '-%03d' if profile.makes_series else ''
        output = folder / f'{profile.id}{number}.{profile.extension}'
        done = self.run('convert', profile, clip, output, '--force')
        return output, (done.stderr.strip() or f'exit status {done.returncode}') if done.returncode else ''

    def estimate(self, profile, seconds):
        """In bytes; None when unknown."""
        done = self.run('estimate', profile, '--duration', str(seconds))
        if done.returncode:
            sys.exit(f'{profile.id}: estimate failed: {done.stderr}')
        found = re.search(r'([\d ]+) bytes', done.stdout)
        return int(found.group(1).replace(' ', '')) if found else None


def look(path):
    """What ffprobe finds in a file."""
    call = ['ffprobe', '-v', 'error', '-of', 'json', '-show_format', '-show_streams', path]
    found = json.loads(subprocess.run(call, capture_output=True, check=True).stdout)
    streams = {stream.get('codec_type'): stream for stream in found['streams']}
    facts = {'format': found['format']['format_name'], 'seconds': float(found['format'].get('duration', 0)),
             'brand': found['format'].get('tags', {}).get('major_brand', '').strip()}
    if 'video' in streams:
        video = streams['video']
        shape = video.get('display_aspect_ratio', f'{video["width"]}:{video["height"]}')
        facts.update({'video codec': video['codec_name'], 'size': f'{video["width"]}x{video["height"]}',
                      'rate': Fraction(video['r_frame_rate']), 'aspect': Fraction(shape.replace(':', '/'))})
    if 'audio' in streams:
        audio = streams['audio']
        facts.update({'audio codec': audio['codec_name'], 'sample rate': audio['sample_rate'],
                      'channels': audio['channels']})
    return facts
