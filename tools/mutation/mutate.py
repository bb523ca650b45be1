#!/usr/bin/python3
"""Changes the product line by line and looks whether a test notices. Started by tools/mutate, which says how."""
import argparse
import collections
import os
import pathlib
import resource
import subprocess
import sys
import time

from shadow import Shadow

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = ROOT / 'build' / 'mutation'
EQUIVALENT = pathlib.Path(__file__).resolve().parent / 'equivalent.txt'

# The test programs that are run for a folder, those that are the most about it first.
PROGRAMS = {
    'dialogs/property': ['dialogs_property_test', 'dialogs_kept_property_test', 'dialogs_number_bindings_test'],
    'dialogs/models': ['dialogs_models_test', 'dialogs_choice_bindings_test', 'dialogs_bindings_test'],
    'dialogs/bindings': ['dialogs_bindings_test', 'dialogs_choice_bindings_test', 'dialogs_number_bindings_test', 'dialogs_text_bindings_test',
                         'dialogs_frame_test'],
    'dialogs/widgets': ['dialogs_widgets_test', 'dialogs_number_bindings_test', 'dialogs_spreadsheet_test'],
    'dialogs/frame': ['dialogs_frame_test', 'dialogs_variableops_test'],
    'dialogs/zoneops': ['dialogs_zoneops_test'],
    'dialogs/variableops': ['dialogs_variableops_test'],
    'dialogs/spreadsheet': ['dialogs_spreadsheet_test'],
    'dialogs/interpolation': ['dialogs_interpolation_test'],
    'dialogs/smoothing': ['dialogs_smoothing_test'],
    'dialogs/fourier': ['dialogs_fourier_test'],
    'dialogs/datasetinfo': ['dialogs_datasetinfo_test'],
    'kernel/style': ['kernel_style_test', 'kernel_test', 'dialogs_kept_property_test'],
    'kernel/api': ['kernel_test', 'host_style_test', 'host_test'],
    'kernel/operations': ['kernel_test', 'host_test', 'operations_test'],
    'kernel': ['kernel_test', 'host_test'],
}
FAILED = 'fails in'
MOST_TESTS = 400  # of one run, so that their names fit on a command line
MEMORY = 24 << 30  # addresses; the longest zone of the tests takes many and touches few


def programs_for(folder):
    while folder not in PROGRAMS and folder:
        folder = os.path.dirname(folder)
    return PROGRAMS.get(folder, [])


def sources_below(paths):
    sources = set()
    for path in paths:
        path = (ROOT / path).resolve()
        if path.suffix == '.ipp':
            path = path.with_suffix('.cpp')
        sources |= {path} if path.is_file() else set(path.rglob('*.cpp'))
    return sorted(sources)


class Tests:
    """What is known of the tests of one program: which mutants they reach, and how long they take."""

    def __init__(self, program):
        self.program = program
        self.reaching = collections.defaultdict(list)  # mutant -> [(seconds, test)]
        self.everywhere = set()                         # reached outside of tests
        self.all = []

    def record(self):
        path = self.program.with_suffix('.reached')
        outcome = self.run([], {'VELDRAW_MUTATION_RECORD': str(path)}, 1800, 3600)
        if outcome and not outcome.startswith(f'{self.program.name} {FAILED}'):
            raise SystemExit(f'without a mutant: {outcome}')  # the tests after it would not be known
        broken = []
        for line in path.read_text(encoding='utf-8').splitlines():
            name, seconds, numbers = line.split('\t')
            reached = {int(number) for number in numbers.split()}
            if name == '-':
                self.everywhere |= reached
            elif name.startswith('!'):
                broken.append(name[1:])
            else:
                self.all.append((float(seconds), name))
                for number in reached:
                    self.reaching[number].append((float(seconds), name))
        for name in broken:
            print(f'{self.program.name}: {name} fails without a mutant and is left out', flush=True)
        self.all.sort()

    def of(self, number):
        """The tests that can notice a mutant, the quickest first."""
        return self.all if number in self.everywhere else sorted(self.reaching.get(number, []))

    def notices(self, number):
        """@return what noticed a mutant, None if nothing did"""
        tests = self.of(number)
        found = self.fails_in(tests, number)
        # What one test alone reaches may have been made there for the whole process, such as a static object.
        return self.fails_in(self.all, number) if not found and len(tests) == 1 else found

    def fails_in(self, tests, number):
        for at in range(0, len(tests), MOST_TESTS):
            part = tests[at:at + MOST_TESTS]
            seconds = sum(each for each, _ in part)
            names = [name for _, name in part]
            found = self.run(names, {'VELDRAW_MUTATION': str(number)}, int(5 + 10 * seconds), 120 + 5 * seconds)
            if found:
                return found
        return None

    def run(self, names, environment, processor_seconds, seconds):
        def limit():
            pathlib.Path('/proc/self/oom_score_adj').write_text('1000', encoding='utf-8')  # the first to go
            resource.setrlimit(resource.RLIMIT_CPU, (processor_seconds, processor_seconds + 1))
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        options = ['--gtest_brief=1']
        if names:
            options += ['--gtest_fail_fast', '--gtest_filter=' + ':'.join(names)]
        try:
            run = subprocess.run([str(self.program), *options], preexec_fn=limit, timeout=seconds, text=True, errors='replace',
                                 stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, cwd=FOLDER,
                                 env={**os.environ, 'QT_QPA_PLATFORM': 'offscreen', **environment})
        except subprocess.TimeoutExpired:
            return 'time is up'
        if run.returncode == 0:
            return None
        failed = [line.split(']')[1].split()[0] for line in run.stdout.splitlines() if line.startswith('[  FAILED  ]')]
        return f'{self.program.name} {FAILED} {failed[0].rstrip(",")}' if failed else f'{self.program.name} ends by {run.returncode}'


class Results:
    """What came of each mutant, kept in a text file so that a run that was stopped goes on where it was."""

    def __init__(self, path):
        self.path = path
        self.verdicts = {}
        if path.exists():
            for line in path.read_text(encoding='utf-8').splitlines():
                verdict, _, key = line.partition('\t')
                self.verdicts[key] = verdict

    def keep(self, mutant, verdict):
        self.verdicts[mutant.key] = verdict
        with open(self.path, 'a', encoding='utf-8') as file:
            file.write(f'{verdict}\t{mutant.key}\n')

    def of(self, mutant):
        return self.verdicts.get(mutant.key, '')


def judged_equivalent():
    if not EQUIVALENT.exists():
        return set()
    lines = EQUIVALENT.read_text(encoding='utf-8').splitlines()
    return {line for line in lines if line and not line.startswith('#')}


def options():
    parser = argparse.ArgumentParser(prog='tools/mutate')
    parser.add_argument('paths', nargs='+', help='sources, or folders of them, below dialogs/ or kernel/')
    parser.add_argument('--every', type=int, default=1, help='only each n-th mutant')
    parser.add_argument('--from', dest='start', type=int, default=0, help='number of the first one of --every')
    parser.add_argument('--again', action='store_true', help='tries only those that survived before, once more')
    parser.add_argument('--list', action='store_true', help='lists the mutants and runs nothing')
    parser.add_argument('--report', action='store_true', help='tells what is known from earlier runs and runs nothing')
    parser.add_argument('--tests', help='test programs to run instead of those of the folder, parted by commas')
    parser.add_argument('--built', action='store_true', help='the test programs are up to date: builds none')
    parser.add_argument('--nice', type=int, default=19, help='how far it stands back behind other work; 19 is furthest')
    parser.add_argument('--minutes', type=float, default=1e9, help='ends after this time; the next run goes on')
    return parser.parse_args()


def prepare(shadow, sources, mutants, asked):
    programs = asked.tests.split(',') if asked.tests else list(dict.fromkeys(
        name for source in sources for name in programs_for(os.path.dirname(str(source.relative_to(ROOT))))))
    if not asked.built:
        subprocess.run([str(ROOT / 'tools' / 'build'), 'dev', *programs], check=True, stdout=subprocess.DEVNULL)
    kept = shadow.compile(mutants)
    tests = []
    for path in shadow.link_programs(programs):
        each = Tests(path)
        each.record()
        tests.append(each)
    return kept, tests


def try_out(mutants, tests, results, deadline):
    for done, mutant in enumerate(mutants, 1):
        if time.time() > deadline:
            print(f'stopped after {done - 1} of {len(mutants)} mutants')
            return
        verdict = 'unreached'
        if any(each.of(mutant.number) for each in tests):
            noticed = next(filter(None, (each.notices(mutant.number) for each in tests)), None)
            verdict = f'noticed by {noticed}' if noticed else 'survived'
        results.keep(mutant, verdict)
        if done % 25 == 0:
            print(f'{done} of {len(mutants)}', flush=True)


def report(mutants, results, equivalent, uncompilable):
    tried = [mutant for mutant in mutants if results.of(mutant)]
    left = [mutant for mutant in tried if not results.of(mutant).startswith('noticed')]
    survivors = [mutant for mutant in left if mutant.key not in equivalent]
    for mutant in survivors:
        print(f'{mutant.path}:{mutant.line}: {results.of(mutant)}: {mutant.kind}: {mutant.original}  =>  {mutant.mutated or "nothing"}')
    folders = collections.defaultdict(lambda: [0, 0, 0, 0])
    for mutant in mutants:
        row = folders[os.path.dirname(mutant.path)]
        row[0] += 1
        row[1] += mutant in tried
        row[2] += mutant in left and mutant.key in equivalent
        row[3] += mutant in survivors
    print(f'\n{"folder":34} mutants   tried  equivalent  survivors')
    for folder, (count, run, same, alive) in sorted(folders.items()):
        share = 100.0 * alive / (run - same) if run > same else 0.0
        print(f'{folder:34} {count:7} {run:7} {same:11} {alive:10}  {share:.1f} %')
    if uncompilable:
        print(f'{uncompilable} more could not be compiled.')


def main():
    asked = options()
    os.nice(asked.nice - os.nice(0))
    sources = sources_below(asked.paths)
    FOLDER.mkdir(parents=True, exist_ok=True)
    shadow = Shadow(ROOT, FOLDER, max(1, int(os.environ.get('VELDRAW_JOBS', '2'))))
    deadline = time.time() + 60.0 * asked.minutes
    mutants = shadow.find(sources)
    results = Results(FOLDER / 'results.txt')
    equivalent = judged_equivalent()
    if asked.list:
        for mutant in mutants:
            print(f'{mutant.path}:{mutant.line}: {mutant.kind}: {mutant.original}  =>  {mutant.mutated or "nothing"}')
    elif asked.report:
        report(mutants, results, equivalent, 0)
    else:
        if asked.again:
            open_ones = [m for m in mutants if results.of(m) and not results.of(m).startswith('noticed')]
        else:
            open_ones = [m for m in mutants[asked.start::asked.every] if not results.of(m)]
        open_ones = [m for m in open_ones if m.key not in equivalent]
        open_ones, tests = prepare(shadow, sources, open_ones, asked)
        try_out(open_ones, tests, results, deadline)
        report(mutants, results, equivalent, shadow.uncompilable)
    return 0


if __name__ == '__main__':
    sys.exit(main())
