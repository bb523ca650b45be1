"""Writes sources with all their mutants, compiles them and links test programs over them."""
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess

from finder import Finder

HERE = pathlib.Path(__file__).resolve().parent
MOST_TRIES = 8


def rendered(text, mutants):
    """A file's text with the edits of its mutants."""
    edits = []
    for mutant in mutants:
        for start, end, phase, order, insert in mutant.make_edits(mutant.number, mutant.order):
            # At one place the inner ones close first, then the outer ones open first.
            rank = {'close': (0, -order), 'open': (1, order), 'replace': (2, order)}[phase]
            edits.append((start, rank, end, insert))
    result, place = [], 0
    for start, _, end, insert in sorted(edits):
        if start > place:
            result.append(text[place:start])
            place = start
        result.append(insert.encode())
        place = max(place, end)
    result.append(text[place:])
    return b''.join(result)


class Shadow:
    """The sources under test with their mutants, beside the daily build, from which everything else comes."""

    def __init__(self, root, folder, jobs):
        self.root, self.folder, self.jobs = root, folder, jobs
        self.build = root / 'build' / 'dev'
        # A mutant that reads beyond an array ends the program, whatever happens to stand there.
        self.flags = ['-w', '-fpermissive', '-Wno-narrowing', '-O1', '-g0', '-Wno-error', '-D_GLIBCXX_ASSERTIONS']
        # What is left of another run would be compiled into the batches of this one.
        shutil.rmtree(folder / 'src', ignore_errors=True)
        for name in ('src', 'obj', 'bin', 'lib'):
            (folder / name).mkdir(parents=True, exist_ok=True)
        self.commands = {}  # source -> how the batch is compiled that includes it
        with open(self.build / 'compile_commands.json', encoding='utf-8') as file:
            for entry in json.load(file):
                if f'{os.sep}tests{os.sep}' not in entry['file']:
                    self.commands.update({source: entry for source in self.sources_of(pathlib.Path(entry['file']))})
        self.objects = {}  # object of the build -> mutated object
        self.uncompilable = 0

    def sources_of(self, compiled):
        """A source that is compiled by itself, or those that a batch of the build includes."""
        if self.build not in compiled.parents or not compiled.exists():
            return [str(compiled)]
        return [str(self.root / name) for name in re.findall(r'^#include "(.+\.cpp)"$', compiled.read_text(encoding='utf-8'), re.M)]

    # ---- finding --------------------------------------------------------------------------------------------------------

    def find(self, sources):
        """The mutants of these sources, and of the .ipp files beside them, numbered from 1."""
        def of_source(source):
            inner = source.with_suffix('.ipp')
            wanted = {str(path): str(path.relative_to(self.root)) for path in (source, inner) if path.exists()}
            arguments = shlex.split(self.commands[str(source)]['command'])[1:]
            for option in ('-o', '-c'):
                at = arguments.index(option)
                del arguments[at:at + 2]
            arguments = [a for a in arguments if not a.startswith('-W') and not a.startswith('-ffp')]
            finder = Finder(str(source), arguments + [f'-working-directory={self.build}'], wanted)
            if finder.errors:
                raise SystemExit(f'{source}: {finder.errors[0]}')
            return finder.mutants

        mutants = []
        for source in sources:
            mutants += of_source(source)
        seen = {}
        for number, mutant in enumerate(mutants, 1):
            mutant.number = number
            with open(mutant.file, encoding='utf-8') as file:
                line = file.read().splitlines()[mutant.line - 1].strip()
            key = f'{mutant.path} | {line} | {mutant.kind}: {mutant.original} => {mutant.mutated or "nothing"}'
            seen[key] = seen.get(key, 0) + 1
            mutant.key = key if seen[key] == 1 else f'{key} ({seen[key]})'
        return mutants

    # ---- compiling ------------------------------------------------------------------------------------------------------

    def write(self, path, mutants):
        with open(path, 'rb') as file:
            text = rendered(file.read(), mutants)
        target = self.folder / 'src' / pathlib.Path(path).relative_to(self.root)
        target.parent.mkdir(parents=True, exist_ok=True)
        content = f'#include "{HERE}/Mutation.h"\n#line 1 "{path}"\n'.encode() + text
        if not target.exists() or target.read_bytes() != content:
            target.write_bytes(content)
        return target

    def compile_batch(self, entry, mutants):
        """@return the mutants that could be compiled"""
        words = shlex.split(entry['command'])
        original = words[words.index('-o') + 1]
        target = self.folder / 'obj' / (original.replace('/', '_'))
        words[words.index('-o') + 1] = str(target)
        words = [w for w in words if not re.fullmatch(r'-Werror|-W[a-z].*|-O\d|-g\d?', w)]
        # First of all folders, so that a batch includes the sources with mutants.
        words[1:1] = ['-I', str(self.folder / 'src')]
        files = {mutant.file for mutant in mutants}
        for _ in range(MOST_TRIES):
            for file in files:
                written = self.write(file, [m for m in mutants if m.file == file])
                if file == entry['file']:
                    words[words.index('-c') + 1] = str(written)
            run = subprocess.run(['ccache', *words, *self.flags], cwd=entry['directory'], capture_output=True, text=True)
            if run.returncode == 0:
                self.objects[original] = target
                return mutants
            bad = {(m.group(1), int(m.group(2))) for m in re.finditer(
                r'^([^\s:]+):(\d+):\d+:\s+(?:error|fatal error|required from here)', run.stderr, re.M)}
            kept = [m for m in mutants
                    if not any(file == m.file and m.span[0] <= line <= m.span[1] for file, line in bad)]
            if len(kept) == len(mutants):
                print(run.stderr[:2000])
                break
            mutants = kept
        print(f'{entry["file"]}: cannot be compiled with mutants')
        return []

    def compile(self, mutants):
        batches = {}
        for mutant in mutants:
            source = mutant.file if mutant.file in self.commands else str(pathlib.Path(mutant.file).with_suffix('.cpp'))
            entry = self.commands[source]
            batches.setdefault(entry['file'], (entry, []))[1].append(mutant)
        kept = []
        with concurrent.futures.ThreadPoolExecutor(self.jobs) as pool:
            for left in pool.map(lambda batch: self.compile_batch(*batch), batches.values()):
                kept += left
        self.uncompilable = len(mutants) - len(kept)
        return sorted(kept, key=lambda m: m.number)

    # ---- linking --------------------------------------------------------------------------------------------------------

    def link_words(self, target):
        """The command that links a target of the build, in words."""
        lines = subprocess.run(['ninja', '-C', str(self.build), '-t', 'commands', target], check=True, capture_output=True,
                               text=True).stdout.splitlines()
        return shlex.split(lines[-1].removeprefix(': && ').removesuffix(' && :'))

    def link(self, words, output):
        words = [str(self.objects.get(word, word)) for word in words]
        words[words.index('-o') + 1] = str(output)
        subprocess.run(words, cwd=self.build, check=True)

    def link_programs(self, programs):
        """@return paths of the programs over mutants"""
        runtime = self.folder / 'obj' / 'Runtime.o'
        subprocess.run(['ccache', 'c++', '-std=c++17', '-O1', '-c', str(HERE / 'Runtime.cpp'), '-o', str(runtime)], check=True)
        library = 'lib/libveldraw_kernel.so'
        shared = self.folder / library
        if any(name.startswith('kernel/') for name in self.objects):
            self.link(self.link_words(library), shared)
        elif shared.exists():
            shared.unlink()
        paths = []
        for program in programs:
            words = self.link_words(f'bin/{program}')
            # First of all objects, so that numbers are known before anything else begins.
            first = next(at for at, word in enumerate(words) if word.endswith('.o'))
            words[first:first] = [f'-Wl,-rpath,{self.folder}/lib', str(runtime)]
            if shared.exists():
                words = [str(shared) if word == library else word for word in words]
            path = self.folder / 'bin' / program
            self.link(words, path)
            paths.append(path)
        return paths
