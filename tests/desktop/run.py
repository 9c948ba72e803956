"""run.py PROGRAM [ARGUMENTS]: runs a program with windows on a screen of its own."""
import subprocess
import sys

import screen

if screen.missing():
    print(screen.missing())
    sys.exit(screen.SKIPPED)
with screen.Screen() as own:
    sys.exit(subprocess.run(sys.argv[1:], env=own.environment, check=False).returncode)
