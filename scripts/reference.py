"""Makes the reference of the QML types out of their headers; scripts/reference calls it.

The headers are the one source. What is read of them: the class comment, Q_PROPERTY, enums, signals, slots and
the accessors of properties, each with the comment in front of it. A declaration right below another, without
a line between them, shares that one's comment. In comments these commands mean something here:

    @p name         a parameter
    @code           an example in QML, up to @endcode
    @return text    what a slot returns
    @throws text    a slot that runs as the instrument's account
    @locks          a slot or signal that takes the object's mutex, itself or by listing anew
    @unit text      unit of a property
"""

import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
PAGES = ROOT / "docs" / "reference"
HEADERS = {
    "Directory": "directory/directory.h",
    "File": "directory/file.h",
    "Path": "directory/path.h",
    "USB": "usb/usb.h",
    "FileTreeViewerItem": "tree/filetreevieweritem.h",
}
QML_TYPES = {"QString": "string", "qint64": "real", "quint64": "real"}


def qml_type(cpp):
    """The name of a C++ type in QML."""
    plain = re.sub(r"\bconst\b|&|\w+::", "", cpp).strip()
    listed = re.fullmatch(r"QDeclarativeListProperty<(\w+)>", plain)
    if listed:
        return f"list<{qml_type(listed.group(1))}>"
    return QML_TYPES.get(plain, plain)


class Comment:
    """What a comment says: paragraphs of text and the commands."""

    def __init__(self, raw=""):
        text = "\n".join(re.sub(r"^\s*\* ?", "", line) for line in raw.splitlines()).strip()
        parts = re.split(r"@(return|throws|locks|unit)\b", text)
        self.text = parts[0].strip()
        self.commands = {}
        for command, words in zip(parts[1::2], parts[2::2]):
            # What stands behind an empty line goes on with the description.
            words, _, rest = words.strip().partition("\n\n")
            self.commands[command] = " ".join(words.split())
            self.text += "\n\n" + rest if rest else ""

    def __bool__(self):
        return bool(self.text)


class Member:
    """A property, signal, slot, accessor or enum."""

    def __init__(self, name, comment, **rest):
        self.name = name
        self.comment = comment
        self.__dict__.update(rest)

    def call(self):
        arguments = ", ".join(" ".join(filter(None, pair)) for pair in self.parameters)
        return f"{self.name}({arguments})"

    def is_never_emitted(self):
        return bool(re.search(r"\bnever emitted\b", self.comment.text, re.IGNORECASE))


class Header:
    """What the header of a type declares."""

    def __init__(self, name, path):
        self.name = name
        self.path = path
        source = (ROOT / path).read_text(encoding="utf-8")
        start = re.search(rf"/\*\*((?:(?!\*/).)*)\*/\s*class {name} : public (\w+)\s*{{", source, re.DOTALL)
        self.comment = Comment(start.group(1))
        self.base = start.group(2)
        self.properties, self.enums, self.methods = [], [], []
        self.read(source[start.end():source.index("\n};", start.end())])

    def read(self, body):
        comment, section, place = Comment(), "private", 0
        tokens = re.compile(
            r"\s*(?:/\*\*(?P<comment>.*?)\*/"
            r"|(?P<ignored>//[^\n]*|\#[^\n]*)"
            r"|Q_PROPERTY\((?P<property>[^()]*)\)"
            r"|(?P<macro>Q_\w+(?:\([^()]*\))?)"
            r"|(?P<section>signals|(?:public|protected|private)(?: slots)?):"
            r"|enum (?P<enum>\w+)\s*{(?P<values>[^}]*)};"
            r"|(?P<method>[^;{}]+)(?:;|{[^{}]*}))", re.DOTALL)
        while body[place:].strip():
            token = tokens.match(body, place)
            if not token:
                sys.exit(f"{self.path}: can't read what begins with {body[place:].strip()[:40]!r}")
            if "\n\n" in token.group(0)[:len(token.group(0)) - len(token.group(0).lstrip())]:
                comment = Comment()
            place = token.end()
            if token["comment"] is not None:
                comment = Comment(token["comment"])
            elif token["section"]:
                section, comment = token["section"], Comment()
            elif token["property"]:
                self.add_property(token["property"], comment)
                comment = Comment()
            elif token["enum"]:
                self.add_enum(token["enum"], token["values"], comment)
                comment = Comment()
            elif token["method"]:
                self.add_method(" ".join(token["method"].split()), section, comment)

    def add_property(self, words, comment):
        words = words.split()
        facts = dict(zip(words[2::2], words[3::2]))
        self.properties.append(Member(words[1], comment, type=qml_type(words[0]), reader=facts["READ"],
                                      writer=facts.get("WRITE"), signal=facts.get("NOTIFY")))

    def add_enum(self, name, values, comment):
        found = re.findall(r"(\w+)\s*=\s*(\d+),?\s*(?:///<\s*([^\n]*))?", values)
        self.enums.append(Member(name, comment, values=found))

    def add_method(self, declaration, section, comment):
        found = re.fullmatch(r"(?:explicit |static |virtual )?(?:(.*?)\s*([&*]*))??(~?\w+)\((.*)\)"
                             r"(?: const)?(?: override)?(?: = .*)?", declaration)
        if not found:
            return
        result, _, name, parameters = found.groups()
        pairs = []
        for parameter in filter(None, (words.split("=")[0].strip() for words in parameters.split(","))):
            words = re.fullmatch(r"(.*?[\s&*>])(\w+)|(.*)", parameter)
            is_named = words.group(1) and words.group(1).strip() != "const"
            pairs.append((qml_type(words.group(1) if is_named else parameter),
                          words.group(2) if is_named else ""))
        self.methods.append(Member(name, comment, section=section, result=qml_type(result or ""),
                                   parameters=pairs))

    def of_section(self, section):
        return [method for method in self.methods if method.section == section]

    def method(self, name):
        return next((method for method in self.methods if method.name == name), None)


class Page:
    """The page of a type, in Markdown."""

    def __init__(self, header):
        self.header = header
        self.names = {member.name for member in
                      header.properties + header.of_section("signals") + header.of_section("public slots")}
        self.lines = []

    def add(self, *lines):
        self.lines += lines

    def marked(self, text):
        """Text with names as links or code."""
        def mark(found):
            command, name, call = found.group("parameter"), found.group("name"), found.group("call") or ""
            if command:
                return f"`{command}`"
            if name in self.names and (call or re.search(r"[a-z][A-Z]", name)):
                return f"[`{name}{call}`](#{name})"
            return f"`{name}{call}`" if call else name
        text = text.replace("see the class", "see the top of this page")
        return re.sub(r"@p (?P<parameter>\w+)|(?<![\w.`/\"])(?P<name>[A-Za-z]\w*)(?P<call>\([^()\s]*\))?", mark, text)

    def add_text(self, text):
        for number, part in enumerate(re.split(r"@code\n(.*?)@endcode", text, flags=re.DOTALL)):
            if number % 2:
                self.add("```qml", part.rstrip(), "```", "")
                continue
            for paragraph in filter(None, (p.strip() for p in part.split("\n\n"))):
                self.add(*(self.marked(line) for line in paragraph.splitlines()), "")

    def add_heading(self, anchor, text):
        self.add(f'<a id="{anchor}"></a>', f"### `{text}`", "")

    def anchor(self, slot):
        """A slot may have the name of a property, whose anchor it leaves alone."""
        is_taken = any(member.name == slot.name for member in self.header.properties)
        return slot.name + "-slot" if is_taken else slot.name

    def make(self):
        header = self.header
        self.add(f"# {header.name}", "",
                 f"A type of the module `FileBrowser` 1.0, made from [{header.path}](../../{header.path}) by "
                 "`scripts/reference`.")
        if header.base == "QDeclarativeItem":
            self.add("It has everything that Qt Quick's `Item` has.")
        self.add("")
        self.add_text(header.comment.text)
        self.add_enums()
        self.add_properties()
        self.add_signals()
        self.add_slots()
        self.add_private_slots()
        return "\n".join(self.lines).rstrip() + "\n"

    def add_enums(self):
        if self.header.enums:
            self.add("## Enumerations", "")
        for enum in self.header.enums:
            self.add_heading(enum.name, enum.name)
            self.add_text(enum.comment.text)
            self.add("| name | number | |", "|---|---|---|")
            self.add(*(f"| `{name}` | {number} | {meaning} |" for name, number, meaning in enum.values), "")

    def add_properties(self):
        self.add("## Properties", "", "| | type | unit | | signal |", "|---|---|---|---|---|")
        for member in self.header.properties:
            comment = self.comment_of(member)
            signal = f"[`{member.signal}()`](#{member.signal})" if member.signal else "none, a constant to QML"
            if member.signal and self.header.method(member.signal).is_never_emitted():
                signal += ", never emitted"
            self.add(f"| [`{member.name}`](#{member.name}) | `{member.type}` | {comment.commands.get('unit', '')} "
                     f"| {'writable' if member.writer else 'read-only'} | {signal} |")
        self.add("")
        for member in self.header.properties:
            self.add_heading(member.name, f"{member.name} : {member.type}")
            told = f"told by `{member.signal}()`" if member.signal else "a constant to QML"
            if member.signal and self.header.method(member.signal).is_never_emitted():
                told += ", which is never emitted"
            self.add(f"{'Writable' if member.writer else 'Read-only'}, {told}.", "")
            comment = self.comment_of(member)
            self.add_text(comment.text)
            writer = self.header.method(member.writer) if member.writer else None
            if writer and writer.comment.text != comment.text:
                self.add_text(writer.comment.text)
                self.add_facts(writer)
            if "unit" in comment.commands:
                self.add(f"- **Unit** {comment.commands['unit']}", "")

    def comment_of(self, member):
        return member.comment or self.header.method(member.reader).comment

    def add_signals(self):
        self.add("## Signals", "")
        for member in self.header.of_section("signals"):
            self.add_heading(member.name, member.call())
            told = [prop.name for prop in self.header.properties if prop.signal == member.name]
            if member.comment:
                self.add_text(member.comment.text)
            else:
                self.add("Tells of " + " and ".join(f"[`{name}`](#{name})" for name in told) + ".", "")
            self.add_facts(member)

    def add_slots(self):
        slots = self.header.of_section("public slots")
        if not slots:
            return
        self.add("## Slots", "", "| | result | as the account | locks |", "|---|---|---|---|")
        for member in slots:
            commands = member.comment.commands
            result = "" if member.result == "void" else f"`{member.result}`"
            self.add(f"| [`{member.call()}`](#{self.anchor(member)}) | {result} | {'yes' if 'throws' in commands else ''} "
                     f"| {'yes' if 'locks' in commands else ''} |")
        self.add("")
        for member in slots:
            self.add_slot(member)
            self.add_text(member.comment.text)
            self.add_facts(member)

    def add_slot(self, member):
        result = "" if member.result == "void" else f"{member.result} "
        self.add_heading(self.anchor(member), result + member.call())

    def add_facts(self, member):
        commands = member.comment.commands
        facts = []
        if "return" in commands:
            facts.append(f"- **Returns** {self.marked(commands['return'])}")
        if "throws" in commands:
            facts.append("- **As the account**, and throws " + self.marked(commands["throws"]))
        if "locks" in commands:
            facts.append("- **Locks** the object: not to be called from a handler that runs while it is locked")
        if facts:
            self.add(*facts, "")

    def add_private_slots(self):
        slots = self.header.of_section("private slots")
        if not slots:
            return
        self.add("## Not for screens", "",
                 "QML could call these too, because it knows no private slots. They are the object's own and may go.",
                 "")
        for member in slots:
            self.add_slot(member)
            self.add_text(member.comment.text)


INDEX = """# The types of the module FileBrowser 1.0

Made from the headers by `scripts/reference`, which also makes HTML and, for Qt Creator and Qt Assistant, Qt help of
these pages. [The module for authors of screens](../qml.md) says what surprises.

| type | |
|---|---|
{rows}

Words that every page uses:

- `real` stands for a whole number of 64 bits. Keep it in a `real` (`double` on Qt 5 and 6); an `int` of QML's is too small.
- **As the account**: the slot runs with the effective user id of the account `ostan`. When the process can't become
  the account it throws `std::runtime_error` and has done nothing. Where nothing is said, a slot runs with the rights
  that the process has.
- **Locks**: the slot waits for the object's mutex. It must not be called from a handler that runs while the mutex is
  held, which the signals in question say of themselves. Where nothing is said, a slot takes no lock.
- A `QStringList` is a list of strings. A `QModelIndex` can't be made in QML: slots that take one are for C++.
- A slot without a result tells nothing of its success, and one that returns `bool` says false on failure.
"""


def index(headers):
    rows = (f"| [{h.name}]({h.name}.md) | {' '.join(h.comment.text.split(chr(10) * 2)[0].split())} |" for h in headers)
    return INDEX.format(rows="\n".join(rows))


def html(title, markdown):
    body = subprocess.run(["cmark-gfm", "--unsafe", "--extension", "table"], input=markdown, check=True,
                          capture_output=True, text=True).stdout
    body = re.sub(r'href="(?:\.\./\.\./|\.\./)[^"]*"', "", body)  # of the repository
    body = re.sub(r'href="README\.md', 'href="index.html', body)
    body = re.sub(r'href="(\w+)\.md', r'href="\1.html', body)
    style = ("body { font-family: sans-serif; max-width: 50em; margin: 2em auto; } td, th { padding: 0.2em 0.8em; "
             "text-align: left; } h1, h2, h3 { color: #0076BC; } pre { background: #f4f4f4; padding: 0.8em; }")
    return (f'<!DOCTYPE html>\n<html><head><meta charset="utf-8"><title>{title}</title>'
            f"<style>{style}</style></head>\n<body>\n{body}</body></html>\n")


def help_project(headers, version):
    """Qt's description of a .qch file. The ids are those under which Qt Creator looks for what is below the cursor."""
    sections, keywords = [], []
    for header in headers:
        sections.append(f'<section title="{header.name}" ref="{header.name}.html"/>')
        for module in ("FileBrowser1.0.", "FileBrowser.", ""):
            keywords.append(f'<keyword name="{header.name}" id="QML.{module}{header.name}" ref="{header.name}.html"/>')
        for member in header.properties + header.of_section("signals") + header.of_section("public slots"):
            for scope in ("QML.FileBrowser1.0.", "QML.", ""):
                keywords.append(f'<keyword name="{member.name}" id="{scope}{header.name}::{member.name}" '
                                f'ref="{header.name}.html#{member.name}"/>')
    files = [f"<file>{name}.html</file>" for name in ["index"] + [header.name for header in headers]]
    return "\n".join([
        '<?xml version="1.0" encoding="UTF-8"?>', '<QtHelpProject version="1.0">',
        f"<namespace>filebrowser.{version}</namespace>", "<virtualFolder>filebrowser</virtualFolder>",
        '<filterSection>', '<toc><section title="The types of the module FileBrowser" ref="index.html">', *sections,
        "</section></toc>", "<keywords>", *keywords, "</keywords>", "<files>", *files, "</files>",
        "</filterSection>", "</QtHelpProject>", ""])


def build(folder, headers, pages, generator):
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    for name, text in pages.items():
        stem = "index" if name == "README.md" else name[:-3]
        (folder / f"{stem}.html").write_text(html(f"{stem} - FileBrowser", text), encoding="utf-8")
    version = re.search(r"VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text().split("project(")[1]).group(1)
    project = folder / "filebrowser.qhp"
    project.write_text(help_project(headers, version), encoding="utf-8")
    subprocess.run([generator, "-o", str(folder / "filebrowser.qch"), str(project)], check=True,
                   stdout=subprocess.DEVNULL)
    project.unlink()


def main():
    headers = [Header(name, path) for name, path in HEADERS.items()]
    pages = {f"{header.name}.md": Page(header).make() for header in headers}
    pages["README.md"] = index(headers)
    if sys.argv[1] == "--check":
        old = [name for name, text in pages.items()
               if not (PAGES / name).exists() or (PAGES / name).read_text(encoding="utf-8") != text]
        if old:
            sys.exit("docs/reference is not what the headers say; call scripts/reference: " + ", ".join(old))
        return
    PAGES.mkdir(exist_ok=True)
    for name, text in pages.items():
        (PAGES / name).write_text(text, encoding="utf-8")
    build(pathlib.Path(sys.argv[1]), headers, pages, sys.argv[2])


main()
