#!/usr/bin/env python3
"""Fails when doxygen's XML output holds a public or protected class or member
without a comment. Doxygen's own warnings skip destructors, deleted members
and some constructors; this check covers every one.

usage: check-documented.py <doxygen xml folder>
"""
import glob
import os
import sys
import xml.etree.ElementTree as ET


def documented(element):
    for tag in ("briefdescription", "detaileddescription", "inbodydescription"):
        text = element.find(tag)
        if text is not None and "".join(text.itertext()).strip():
            return True
    return False


def where(element):
    location = element.find("location")
    if location is None:
        return "?"
    return "%s:%s" % (location.get("file"), location.get("line"))


def main(folder):
    missing = set()
    for path in glob.glob(os.path.join(folder, "*.xml")):
        if os.path.basename(path) == "index.xml":
            continue
        for compound in ET.parse(path).getroot().iter("compounddef"):
            name = compound.findtext("compoundname")
            if compound.get("kind") in ("class", "struct", "union") and not documented(compound):
                missing.add("%s: %s %s is not documented" % (where(compound), compound.get("kind"), name))
            for member in compound.iter("memberdef"):
                if member.get("prot") == "private" or documented(member):
                    continue
                missing.add("%s: %s %s::%s%s is not documented" % (
                    where(member), member.get("kind"), name, member.findtext("name"),
                    member.findtext("argsstring") or ""))
    for line in sorted(missing):
        print(line, file=sys.stderr)
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
