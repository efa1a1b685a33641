"""Running programs of others."""

import os
import subprocess


def output_of(*command):
    """What a program writes. Raises ValueError when it fails or complains."""
    # In a plain locale: Perl complains of one that is not installed.
    done = subprocess.run(command, capture_output=True, check=False, env=os.environ | {"LC_ALL": "C"})
    if done.returncode or done.stderr:
        raise ValueError(f"{command[0]}: {done.stderr.decode(errors='replace').strip() or done.returncode}")
    return done.stdout
