"""What programs of others find in a drawing."""
from collections import Counter

import ezdxf
from ezdxf import recover


class Verdict:
    """ezdxf's opinion: did it open as it stands, or by repair only, and what did the audit find?"""

    def __init__(self, path):
        self.recovered = False
        self.refusal = None
        try:
            document = ezdxf.readfile(path)
            auditor = document.audit()
        except (ezdxf.DXFError, ValueError, KeyError, IndexError, AttributeError, TypeError, UnicodeError) as error:
            self.recovered = True
            self.refusal = f"{type(error).__name__}: {error}"
            try:
                document, auditor = recover.readfile(path)
            except Exception as second:   # whatever it trips over, it cannot judge this drawing
                self.refusal += f"; {type(second).__name__}: {second}"
                document = None
        self.opened = document is not None
        self.errors = Counter(error.code for error in auditor.errors) if self.opened else Counter()
        self.messages = [error.message for error in auditor.errors] if self.opened else []

    def worse_than(self, other):
        """What this drawing has and the other had not, as lines."""
        if not other.opened:
            return []
        if not self.opened:
            return [f"cannot be opened: {self.refusal}"]
        lines = []
        if self.recovered and not other.recovered:
            lines.append(f"opens by repair only: {self.refusal}")
        for code, count in (self.errors - other.errors).items():
            lines.append(f"{count} more audit errors of kind {code}: {self.messages[:3]}")
        return lines
