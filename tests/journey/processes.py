"""Programs that a test starts. They end with it, also when it is ended itself."""

import ctypes
import signal
import subprocess

_LIBC = ctypes.CDLL(None)
_SET_SIGNAL_OF_PARENTS_DEATH = 1  # PR_SET_PDEATHSIG


def start(command, **options):
    return subprocess.Popen(
        [str(word) for word in command], **options,
        preexec_fn=lambda: _LIBC.prctl(_SET_SIGNAL_OF_PARENTS_DEATH, signal.SIGTERM))


def stop(*processes):
    """Asks them to end, the last one first, and ends those that do not."""
    for process in reversed(processes):
        process.terminate()
    for process in reversed(processes):
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
