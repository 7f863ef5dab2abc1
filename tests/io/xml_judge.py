"""Prints the events Python's expat (namespaces on) reads from each file:
"= file", "S name" ("uri}local" or "local"), "A name=value" (sorted), "T text"
(line feeds removed, when something is left), "C comment", "E"."""
import sys
import xml.parsers.expat


def events(path):
    out = []
    text = []

    def flush():
        data = "".join(text).replace("\n", "")
        text.clear()
        if data:
            out.append("T " + data)

    def start(name, attrs):
        flush()
        out.append("S " + name)
        for key in sorted(attrs):
            out.append("A " + key + "=" + attrs[key])

    def end(name):
        flush()
        out.append("E")

    def comment(data):
        flush()
        out.append("C " + data)

    parser = xml.parsers.expat.ParserCreate(namespace_separator="}")
    parser.StartElementHandler = start
    parser.EndElementHandler = end
    parser.CharacterDataHandler = text.append
    parser.CommentHandler = comment
    with open(path, "rb") as f:
        parser.ParseFile(f)
    flush()
    return out


def main():
    lines = []
    for path in sys.argv[1:]:
        lines.append("= " + path)
        lines.extend(events(path))
    sys.stdout.buffer.write(("\n".join(lines) + "\n").encode("utf-8"))


if __name__ == "__main__":
    main()
