"""A print server of a test's own with two real printers, and what these have received."""

import dataclasses
import json
import subprocess

import processes


@dataclasses.dataclass
class Page:
    width: float  # points, as it lies before the reader
    height: float
    text: str


@dataclasses.dataclass
class Job:
    title: str
    copies: int
    media: str  # the media-col, as the printer got it
    file: str  # the PDF


class PrintServer:
    COLOR = "Kleur-A4"  # the default printer
    DRAWING = "Tekening-A3"

    def __init__(self, program):
        """PROGRAM is what print_server.cpp becomes."""
        self._process = processes.start([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        text=True)
        self.address = self._read_line()

    def close(self):
        self._process.stdin.close()
        self._process.stdout.close()
        self._process.wait()

    def jobs(self, printer):
        """What the printer has received so far, in the order of arrival."""
        return [Job(**job) for job in self._ask(f"jobs {printer}")]

    def pages(self, file):
        return [Page(**page) for page in self._ask(f"pages {file}")]

    def forget(self):
        """What has been received, when nothing is left to print."""
        self._ask("forget")

    def await_rest(self):
        """Until nothing is left to print."""
        self._ask("rest")

    def _ask(self, question):
        print(question, file=self._process.stdin, flush=True)
        return json.loads(self._read_line())

    def _read_line(self):
        line = self._process.stdout.readline()
        if not line:
            raise RuntimeError("the print server has failed")
        return line.rstrip("\n")
