"""An independent look at the preference file: whole at every moment, unless a fault on demand is to blame."""

import collections
import plistlib

from hand import Failure


class PreferenceLooks:
    """What may be wrong with the file is said by whoever causes it: `may_vanish` and `may_be_halved`."""

    def __init__(self, path):
        self.path = path
        self.count = 0
        self.missing = 0
        self.halved = 0
        self.versions = 0
        self.may_vanish = True  # It is not there before the first start.
        self.may_be_halved = False
        self.content = None
        self.whole = collections.deque(maxlen=8)  # The latest versions.
        self.entries = {}

    def expect_no_fault(self):
        """What follows is none: a file that is whole stays so, and one that is there stays."""
        if self.content is not None:
            self.may_vanish = False
            self.may_be_halved = self.entries is None

    def look(self):
        self.count += 1
        try:
            with open(self.path, "rb") as file:
                content = file.read()
        except FileNotFoundError:
            if not self.may_vanish:
                raise Failure("The preference file has vanished, and nobody wished it.") from None
            self.missing += self.content is not None
            self.content = None
            self.entries = None
            return
        if content == self.content:
            return
        try:
            entries = plistlib.loads(content)
        except Exception:
            if not self.may_be_halved or not self.is_halved(content):
                raise Failure(f"The preference file holds {content!r}, which is no property list.") from None
            self.halved += 1
            entries = None
        if entries is not None and not isinstance(entries, dict):
            raise Failure(f"The preference file holds {content!r}, which is no dictionary.")
        self.versions += 1
        self.content = content
        self.entries = entries
        if entries is not None:
            self.whole.append(content)

    def is_halved(self, content):
        """Once, or more often by as many clicks."""
        return any(whole.startswith(content) and len(content) in (len(whole) >> times for times in range(1, 10))
                   for whole in self.whole)
