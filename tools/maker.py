"""The common part of the makers of data files: they write their files, list them, or check that they are up to date.

    MAKER [NAME...]       makes the named files, or all
    MAKER --check ...     writes nothing; fails with a sentence for each file that differs
    MAKER --list ...      prints the path of each file, relative to the repository

A maker of texts makes them anew and compares. A rendered file depends on the versions of the programs that render it, so
the bytes of two machines may differ. A record beside the sources therefore keeps, for each rendered file, the hash of its
source and its own; the check compares both and needs none of those programs.
"""
import hashlib
import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
RECORD = "rendered.json"


NAMED = ("--start-over", "--renew")  # options that need a name


def read_arguments(arguments, names, options=("--check", "--list")):
    """The option, or an empty text, and the wanted names, which are all when none is given and the option needs none."""
    given = [word for word in arguments if word.startswith("-")]
    wanted = [word for word in arguments if not word.startswith("-")]
    if len(given) > 1 or not {*given} <= {*options}:
        sys.exit(f"the options are {' and '.join(options)}, one at a time")
    if {*given} & {*NAMED} and not wanted:
        sys.exit(f"{given[0]} needs the names of what it is to change")
    for name in wanted:
        if name not in names:
            sys.exit(f"nothing is named {name}; the names are {', '.join(names)}")
    return "".join(given), wanted or list(names)


def report(faults, count):
    """Ends the program with the faults of a check, or says that `count` files have none."""
    if faults:
        sys.exit("\n".join(faults))
    print(f"{count} files are what their sources say")


def run_text_maker(arguments, names, make):
    """A maker of texts. `make` returns the texts of a name by their paths relative to the repository."""
    option, wanted = read_arguments(arguments, names)
    texts = {path: text for name in wanted for path, text in make(name).items()}
    if option == "--list":
        print("\n".join(texts))
    elif option == "--check":
        report([fault for path, text in texts.items() for fault in text_faults(path, text)], len(texts))
    else:
        write_texts(texts)


def write_texts(texts):
    """Writes the texts to their paths, which are relative to the repository."""
    for path, text in texts.items():
        (ROOT / path).parent.mkdir(parents=True, exist_ok=True)
        (ROOT / path).write_text(text)
        print(f"{path}  {len(text) // 1024 + 1} KB")


def text_faults(path, text):
    file = ROOT / path
    if not file.exists():
        yield f"{path} is missing"
    elif file.read_text() != text:
        yield f"{path} differs from what its maker writes"


class Rendered:
    """The rendered files of one folder of sources, and the record that ties them together.

    `sources` gives for the path of each rendered file, relative to the repository, all bytes that it is rendered
    from.
    """

    def __init__(self, folder, sources):
        self.path = ROOT / folder / RECORD
        self.sources = sources

    def read(self):
        return json.loads(self.path.read_text()) if self.path.exists() else {}

    def note(self, path):
        """Records a file that was rendered just now, and forgets files that have no source any more."""
        hashes = {known: pair for known, pair in self.read().items() if known in self.sources}
        hashes[path] = self.hashes(path)
        self.path.write_text(json.dumps(dict(sorted(hashes.items())), indent=1) + "\n")

    def hashes(self, path):
        return {"source": digest(self.sources[path]), "file": digest((ROOT / path).read_bytes())}

    def faults(self, paths):
        """The faults of these files, and the recorded files that have no source."""
        known = self.read()
        for path in paths:
            if not (ROOT / path).exists():
                yield f"{path} is missing"
            elif path not in known:
                yield f"{path} is not in {self.path.relative_to(ROOT)}"
            elif known[path]["source"] != digest(self.sources[path]):
                yield f"{path} is older than its source"
            elif known[path]["file"] != digest((ROOT / path).read_bytes()):
                yield f"{path} is not the file that was rendered from its source"
        yield from (f"{path} has no source" for path in known if path not in self.sources)


def digest(content):
    return hashlib.sha256(content).hexdigest()


def run_renderer(arguments, files, rendered, render):
    """A maker of rendered files. `files` gives their paths by name; `render` renders one by its name."""
    option, wanted = read_arguments(arguments, files)
    paths = [files[name] for name in wanted]
    if option == "--list":
        print("\n".join(paths))
    elif option == "--check":
        report(list(rendered.faults(paths)), len(paths))
    else:
        for name in wanted:
            render(name)
            rendered.note(files[name])
