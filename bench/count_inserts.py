#!/usr/bin/python3
"""Prints how many block references ezdxf finds in the model space of a drawing, for comparing times. usage: count_inserts.py DRAWING"""

import sys

import ezdxf

print(len(ezdxf.readfile(sys.argv[1]).modelspace().query("INSERT")))
