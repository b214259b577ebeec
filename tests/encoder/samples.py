# SPDX-License-Identifier: MIT
"""The sample profiles as an encoder's user reads them, without the library's help."""
import xml.etree.ElementTree as ElementTree
from fractions import Fraction

# What ffprobe calls codecs that it does not call by the profile's name.
CODECS = {
    'xvid': 'mpeg4', 'msmpeg4': 'msmpeg4v3', 'flv': 'flv1', 'h263p': 'h263', 'wma8x': 'wmav2', 'wma9x': 'wmav2',
    'JPG': 'mjpeg', 'PNG': 'png', 'BMP': 'bmp', 'GIF': 'gif'}

# The discs whose standard decides the sound's codec, whatever else the profile has.
DISC_AUDIO = {'DVD': 'ac3'}

MP4_FAMILY = 'mov,mp4,m4a,3gp,3g2,mj2'
# What ffprobe calls the format, and the brand that tells those of one family apart.
CONTAINERS = {
    'mp4': (MP4_FAMILY, 'isom'), 'mov': (MP4_FAMILY, 'qt'), '3gp': (MP4_FAMILY, '3gp4'), 'psp': (MP4_FAMILY, 'MSNV'),
    'mp2': ('mp3', None), 'dpg': ('mpeg', None), 'mpeg': ('mpeg', None),
    'vcd': ('mpeg', None), 'svcd': ('mpeg', None), 'dvd': ('mpeg', None)}


class Profile:
    def __init__(self, path):
        root = ElementTree.parse(path).getroot()
        self.id = path.stem
        self.format = root.findtext('Main/Format').strip()
        self.extension = root.findtext('Main/ExtName').strip()
        self.settings = {item.tag: item.get('Value') for item in root.find('Parameter') if item.get('Value')}
        self.makes_series = self.format == 'image2'
        self.has_video = 'vcodec' in self.settings
        self.has_audio = 'acodec' in self.settings

    def get(self, name):
        """The setting's value; None when the profile leaves the choice to the encoder or its input."""
        value = self.settings.get(name)
        return None if value in ('Auto', 'Full') else value

    def sample_rate(self):
        is_wma = self.get('acodec') in ('wma7x', 'wma8x', 'wma9x')
        return '44100' if is_wma and self.get('ab') == '320' else self.get('ar')  # WMA has 320 kbit/s there alone

    def pictures(self, seconds):
        """How many a series has: one at the start of each interval."""
        interval = int(self.get('pi'))
        return -(-min(seconds, int(self.get('pt') or seconds)) // interval)

    def expected(self, source):
        """What ffprobe has to find, by the names that probe.look gives; `source` for what the profile leaves open."""
        settings = {}
        if not self.makes_series:
            settings['format'], brand = CONTAINERS.get(self.format, (self.format, None))
            settings.update({'brand': brand} if brand else {})
        codec = self.get('vcodec') or self.get('pcodec')
        if codec:
            settings['video codec'] = CODECS.get(codec, codec)
            settings['size'] = self.get('s') or source['size']
            settings.update({'aspect': Fraction(self.get('aspect').replace(':', '/'))} if self.get('aspect') else {})
        if codec and not self.makes_series:
            interval = self.get('pi')
            settings['rate'] = 1 / Fraction(interval) if interval else Fraction(self.get('r') or source['rate'])
        if self.has_audio:
            codec = DISC_AUDIO.get(self.get('target'), self.get('acodec'))
            settings['audio codec'] = CODECS.get(codec, codec)
            settings['sample rate'] = self.sample_rate() or source['sample rate']
            settings['channels'] = int(self.get('ac') or source['channels'])
        return settings


def read_all(folder):
    return [Profile(path) for path in sorted(folder.rglob('*.pf'))]
