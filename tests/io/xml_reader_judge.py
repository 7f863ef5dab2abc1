#!/usr/bin/env python3
"""Writes random XML documents and, for each, the tokens Python's expat
parser reads from it, in the reader tests' token notation. The reader test
reads the documents with CXMLTextReader and expects the same tokens.

usage: xml_reader_judge.py <output folder> <count> <seed>
"""
import os
import random
import sys
import xml.parsers.expat
from xml.sax.saxutils import escape, quoteattr

NAME_START = "abcxyzABCXYZ_\u00e9\u0436\u4e2d"
NAME_REST = NAME_START + "0123456789.-\u00b7"
TEXT = "ab yz09 &<>\"'\t\n\u00e9\u20ac\u4e2d\U0001F600]"


def name(rng):
    return rng.choice(NAME_START) + "".join(rng.choice(NAME_REST) for _ in range(rng.randint(0, 6)))


def text(rng, n):
    return "".join(rng.choice(TEXT) for _ in range(n))


def element(rng, depth, out):
    tag = name(rng)
    attrs = {}
    for _ in range(rng.randint(0, 3)):
        attrs[name(rng)] = text(rng, rng.randint(0, 8))
    out.append("<" + tag + "".join(" %s=%s" % (k, quoteattr(v)) for k, v in attrs.items()))
    if depth > 3 or rng.random() < 0.2:
        out.append("/>")
        return
    out.append(">")
    for _ in range(rng.randint(0, 4)):
        kind = rng.random()
        if kind < 0.4:
            out.append(escape(text(rng, rng.randint(1, 12))).replace("]]>", "]]&gt;"))
        elif kind < 0.5:
            out.append("<!--" + text(rng, 5).replace("-", "_") + "-->")
        elif kind < 0.55:
            out.append("<![CDATA[" + text(rng, 6).replace("]", "") + "]]>")
        else:
            element(rng, depth + 1, out)
    out.append("</" + tag + ">")


def tokens(data):
    """The document's tokens as expat reports them, text runs joined."""
    out, pending = [], []
    in_cdata = [False]

    def flush():
        if pending:
            out.append(("[%s]" if in_cdata[0] else "'%s'") % "".join(pending))
            pending.clear()

    def start(tag, attrs):
        flush()
        out.append("<" + tag + "".join(" %s=%s" % (attrs[i], attrs[i + 1]) for i in range(0, len(attrs), 2)) + ">")

    def end(tag):
        flush()
        out.append("</" + tag + ">")

    def chars(data):
        if depth[0] > 0 or in_cdata[0]:
            pending.append(data)

    depth = [0]

    def start_counted(tag, attrs):
        start(tag, attrs)
        depth[0] += 1

    def end_counted(tag):
        end(tag)
        depth[0] -= 1

    def comment(data):
        flush()
        out.append("#" + data)

    def start_cdata():
        flush()
        in_cdata[0] = True

    def end_cdata():
        flush()
        in_cdata[0] = False

    parser = xml.parsers.expat.ParserCreate("UTF-8")
    parser.ordered_attributes = True
    parser.StartElementHandler = start_counted
    parser.EndElementHandler = end_counted
    parser.CharacterDataHandler = chars
    parser.CommentHandler = comment
    parser.StartCdataSectionHandler = start_cdata
    parser.EndCdataSectionHandler = end_cdata
    parser.Parse(data, True)
    flush()
    return " ".join(out)


def main():
    folder, count, seed = sys.argv[1], int(sys.argv[2]), int(sys.argv[3])
    rng = random.Random(seed)
    for i in range(count):
        out = ['<?xml version="1.0" encoding="UTF-8"?>\n']
        element(rng, 0, out)
        data = "".join(out).encode("utf-8")
        with open(os.path.join(folder, "doc%d.xml" % i), "wb") as f:
            f.write(data)
        with open(os.path.join(folder, "doc%d.tokens" % i), "wb") as f:
            f.write(tokens(data).encode("utf-8"))


if __name__ == "__main__":
    main()
