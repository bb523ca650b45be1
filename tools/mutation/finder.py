"""Finds what can be changed in C++ sources: the mutants of a file, each with the edits that write it."""
import re

from clang.cindex import CursorKind, Index, TypeKind

FUNCTIONS = {CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR,
             CursorKind.CONVERSION_FUNCTION, CursorKind.FUNCTION_TEMPLATE}
WRAPPERS = {CursorKind.UNEXPOSED_EXPR, CursorKind.PAREN_EXPR}
STATEMENTS = {CursorKind.CALL_EXPR, CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR,
              CursorKind.UNARY_OPERATOR, CursorKind.UNEXPOSED_EXPR, CursorKind.CXX_DELETE_EXPR, CursorKind.CONTINUE_STMT,
              CursorKind.CXX_THROW_EXPR}
BODIES = {CursorKind.IF_STMT, CursorKind.FOR_STMT, CursorKind.WHILE_STMT, CursorKind.CXX_FOR_RANGE_STMT}
WHOLE = {TypeKind.INT, TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG, TypeKind.ULONGLONG, TypeKind.SHORT,
         TypeKind.USHORT, TypeKind.UCHAR, TypeKind.SCHAR, TypeKind.CHAR_S}
NUMBERS = WHOLE | {TypeKind.FLOAT, TypeKind.DOUBLE, TypeKind.LONGDOUBLE}

RELATIONS = {'<': ('less', '<='), '<=': ('lessEqual', '<'), '>': ('greater', '>='), '>=': ('greaterEqual', '>')}
EQUALITIES = {'==': '!=', '!=': '=='}
ARITHMETIC = {'+': ('plus', '-'), '-': ('minus', '+'), '*': ('times', '/'), '/': ('dividedBy', '*'), '%': ('remainder', '*')}
ASSIGNMENTS = {'+=': ('add', '-='), '-=': ('subtract', '+='), '*=': ('multiply', '/='), '/=': ('divide', '*=')}
LOGIC = {'&&': '||', '||': '&&'}
NOTHING = re.compile(r'\{\}|nullptr|[\w:]+(<[\w:, ]*>)?(\(\)|\{\})|std::nullopt|""')


class Mutant:
    """One change of a file. Edits are (start, end, text): what stands from start to end becomes the text."""

    def __init__(self, path, line, kind, original, mutated, span):
        self.path, self.line, self.kind = path, line, kind
        self.original, self.mutated = original, mutated
        self.span = span  # first and last line that the edits touch
        self.number = 0
        self.key = ''


def peeled(cursor):
    """What stands below parentheses and conversions that are not written."""
    while cursor.kind in WRAPPERS:
        children = list(cursor.get_children())
        if len(children) != 1:
            break
        cursor = children[0]
    return cursor


def type_kind(cursor):
    return cursor.type.get_canonical().kind


class Finder:
    """Walks the syntax of one source and of what it alone includes."""

    def __init__(self, source, arguments, wanted):
        """wanted: path from the root of each file whose mutants are asked for, by absolute path."""
        self.wanted = wanted
        self.texts = {}
        self.mutants = []
        self.order = 0
        unit = Index.create().parse(source, args=arguments)
        self.errors = [d.spelling for d in unit.diagnostics if d.severity >= 4]
        for cursor in unit.cursor.get_children():
            if cursor.location.file and cursor.location.file.name in wanted:
                self.declaration(cursor)

    # ---- places ---------------------------------------------------------------------------------------------------------

    def text_of(self, name):
        if name not in self.texts:
            with open(name, 'rb') as file:
                self.texts[name] = file.read()
        return self.texts[name]

    def slice(self, cursor):
        start, end = cursor.extent.start, cursor.extent.end
        if not start.file or start.file.name not in self.wanted or end.offset < start.offset:
            return ''
        return self.text_of(start.file.name)[start.offset:end.offset].decode()

    def between(self, first, second):
        """The text between two cursors, without comments, and the place of what is left of it."""
        name = first.extent.start.file.name
        start, end = first.extent.end.offset, second.extent.start.offset
        raw = self.text_of(name)[start:end].decode() if end >= start else ''
        text = re.sub(r'//[^\n]*|/\*.*?\*/', lambda m: ' ' * len(m.group(0)), raw, flags=re.S)
        stripped = text.strip()
        at = start + len(text[:len(text) - len(text.lstrip())].encode())
        return stripped, at, at + len(stripped.encode())

    def behind_semicolon(self, cursor):
        """Place behind the semicolon of a statement, None if there is none."""
        name = cursor.extent.start.file.name
        match = re.compile(rb'\s*;').match(self.text_of(name), cursor.extent.end.offset)
        return match.end() if match else None

    # ---- collecting -----------------------------------------------------------------------------------------------------

    def add(self, cursor, kind, original, mutated, make_edits):
        start, end = cursor.extent.start, cursor.extent.end
        if not start.file or start.file.name not in self.wanted or not self.slice(cursor):
            return
        self.order += 1
        mutant = Mutant(self.wanted[start.file.name], start.line, kind, original, mutated, (start.line, end.line))
        mutant.make_edits = make_edits
        mutant.order = self.order
        mutant.file = start.file.name
        self.mutants.append(mutant)

    def wrap(self, cursor, kind, original, mutated, opening, closing=')', end=None):
        """A mutant that puts text around a cursor; the opening one is given the mutant's number."""
        start = cursor.extent.start.offset
        last = cursor.extent.end.offset if end is None else end
        self.add(cursor, kind, original, mutated, lambda n, order: [
            (start, start, 'open', order, opening % n), (last, last, 'close', order, closing)])

    def operate(self, cursor, kind, original, mutated, function, place):
        """A mutant of a binary operator: a function's call in the operator's place."""
        start, last = cursor.extent.start.offset, cursor.extent.end.offset
        self.add(cursor, kind, original, mutated, lambda n, order: [
            (start, start, 'open', order, f'veldrawMutation::{function}({n}, '), (place[0], place[1], 'replace', order, ', '),
            (last, last, 'close', order, ')')])

    # ---- declarations ---------------------------------------------------------------------------------------------------

    def declaration(self, cursor):
        if cursor.kind in (CursorKind.NAMESPACE, CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL, CursorKind.CLASS_TEMPLATE,
                           CursorKind.UNEXPOSED_DECL, CursorKind.LINKAGE_SPEC):
            for child in cursor.get_children():
                if child.location.file and child.location.file.name in self.wanted:
                    self.declaration(child)
        elif cursor.kind in FUNCTIONS:
            if not cursor.is_definition() or 'constexpr' in self.slice(cursor).split('{')[0]:
                return
            for child in cursor.get_children():
                if child.kind != CursorKind.PARM_DECL:
                    self.visit(child, cursor)
        elif cursor.kind in (CursorKind.VAR_DECL, CursorKind.FIELD_DECL):
            self.visit(cursor, None)

    # ---- statements and expressions -------------------------------------------------------------------------------------

    def visit(self, cursor, function):
        kind = cursor.kind
        if kind in (CursorKind.STATIC_ASSERT, CursorKind.ENUM_DECL, CursorKind.TYPE_REF, CursorKind.PARM_DECL):
            return
        if kind == CursorKind.VAR_DECL and re.match(r'[^={(]*\bconstexpr\b', self.slice(cursor)):
            return
        children = list(cursor.get_children())
        if kind == CursorKind.CASE_STMT:
            children = children[1:]
        if kind in (CursorKind.VAR_DECL, CursorKind.FIELD_DECL) and type_kind(cursor) == TypeKind.CONSTANTARRAY:
            children = [child for child in children if child.kind != CursorKind.INTEGER_LITERAL]  # its size
        if kind == CursorKind.LAMBDA_EXPR:
            function = None  # its result is not known
        before = getattr(self, 'of_' + kind.name.lower(), None)
        if before:
            before(cursor, children, function)
        for place, child in enumerate(children):
            if kind == CursorKind.COMPOUND_STMT or (kind in BODIES and place > 0 and child is not children[0]):
                self.droppable(child, kind, place, len(children))
            self.visit(child, function)

    def droppable(self, cursor, parent, place, count):
        if parent == CursorKind.FOR_STMT and place != count - 1:
            return
        is_plain_return = cursor.kind == CursorKind.RETURN_STMT and not list(cursor.get_children())
        if cursor.kind not in STATEMENTS and not is_plain_return:
            return
        end = self.behind_semicolon(cursor)
        if end is not None:
            self.wrap(cursor, 'statement dropped', ' '.join(self.slice(cursor).split()) + ';', '', '{ if (!veldrawMutation::is(%d)) { ',
                      ' } }', end)

    def of_if_stmt(self, cursor, children, function):
        if not children or re.match(r'if\s+constexpr', self.slice(cursor)):
            return
        condition = children[0]
        if condition.kind in (CursorKind.VAR_DECL, CursorKind.DECL_STMT) or self.is_flipped_anyway(condition):
            return
        self.negate(condition)

    def of_conditional_operator(self, cursor, children, function):
        if len(children) == 3 and not self.is_flipped_anyway(children[0]):
            self.negate(children[0])

    def negate(self, condition):
        text = ' '.join(self.slice(condition).split())
        self.wrap(condition, 'condition', text, f'!({text})', 'veldrawMutation::flip(%d, static_cast<bool>(', '))')

    def operator_of(self, cursor, children):
        if len(children) != 2 or not children[0].extent.start.file or not children[1].extent.start.file:
            return '', (0, 0)
        text, start, end = self.between(children[0], children[1])
        return text, (start, end)

    def is_flipped_anyway(self, cursor):
        """Whether the whole of a condition is an equality, a negation or a constant, which have mutants of their own."""
        inner = peeled(cursor)
        if inner.kind == CursorKind.CXX_BOOL_LITERAL_EXPR:
            return True
        if inner.kind == CursorKind.UNARY_OPERATOR and self.slice(inner).startswith('!'):
            return True
        if inner.kind == CursorKind.CALL_EXPR and inner.spelling in ('operator==', 'operator!='):
            return True
        return inner.kind == CursorKind.BINARY_OPERATOR and \
            self.operator_of(inner, list(inner.get_children()))[0] in EQUALITIES

    def of_binary_operator(self, cursor, children, function):
        sign, place = self.operator_of(cursor, children)
        text = ' '.join(self.slice(cursor).split())
        changed = lambda to: f'{sign} -> {to}'
        if sign in RELATIONS:
            name, other = RELATIONS[sign]
            self.operate(cursor, 'relation', text, changed(other), name, place)
        elif sign in EQUALITIES:
            self.wrap(cursor, 'equality', text, changed(EQUALITIES[sign]), 'veldrawMutation::flip(%d, static_cast<bool>(', '))')
        elif sign in LOGIC:
            left, right = children
            begin, last = cursor.extent.start.offset, cursor.extent.end.offset
            self.add(cursor, 'logic', text, changed(LOGIC[sign]), lambda n, order: [
                (begin, begin, 'open', order, f'veldrawMutation::flip({n}, veldrawMutation::flip({n}, static_cast<bool>('),
                (place[0], place[1], 'replace', order, f')) {sign} veldrawMutation::flip({n}, static_cast<bool>('),
                (last, last, 'close', order, ')))')])
        elif sign in ARITHMETIC and all(type_kind(child) in NUMBERS for child in children):
            name, other = ARITHMETIC[sign]
            self.operate(cursor, 'arithmetic', text, changed(other), name, place)

    def of_compound_assignment_operator(self, cursor, children, function):
        sign, place = self.operator_of(cursor, children)
        if sign in ASSIGNMENTS and all(type_kind(child) in NUMBERS for child in children):
            name, other = ASSIGNMENTS[sign]
            self.operate(cursor, 'assignment', ' '.join(self.slice(cursor).split()), f'{sign} -> {other}', name, place)

    def of_call_expr(self, cursor, children, function):
        sign = cursor.spelling.replace('operator', '')
        if cursor.spelling in ('operator==', 'operator!=', 'operator<', 'operator>', 'operator<=', 'operator>='):
            text = ' '.join(self.slice(cursor).split())
            if re.search(re.escape(sign), text):
                self.wrap(cursor, 'equality', text, f'!({text})', 'veldrawMutation::flip(%d, static_cast<bool>(', '))')

    def of_unary_operator(self, cursor, children, function):
        text = ' '.join(self.slice(cursor).split())
        if text.startswith('!'):
            self.wrap(cursor, 'negation', text, text[1:], 'veldrawMutation::flip(%d, static_cast<bool>(', '))')
        elif text.startswith('-') and not text.startswith('--') and type_kind(cursor) in NUMBERS:
            # The sign goes into the function, so that the number keeps its own mutant.
            start, last = cursor.extent.start.offset, cursor.extent.end.offset
            self.add(cursor, 'sign', text, text[1:], lambda n, order: [
                (start, start, 'open', order, f'veldrawMutation::negated({n}, '), (start, start + 1, 'replace', order, ''),
                (last, last, 'close', order, ')')])

    def of_integer_literal(self, cursor, children, function):
        text = self.slice(cursor)
        if re.fullmatch(r"[\d']+[uUlL]*", text):
            number = text.rstrip('uUlL').replace("'", '')
            suffix = text[len(text.rstrip('uUlL')):]
            other = {'0': '1', '1': '0'}.get(number, f'({number}{suffix} + 1)')
            other = other if other.startswith('(') else other + suffix
            self.wrap(cursor, 'constant', text, other, f'veldrawMutation::value(%d, {other}, ')

    def of_floating_literal(self, cursor, children, function):
        text = self.slice(cursor)
        if re.fullmatch(r"[\d.eE+\-']+[fF]?", text):
            self.wrap(cursor, 'constant', text, f'{text} + 1', 'veldrawMutation::offByOne(%d, ')

    def of_cxx_bool_literal_expr(self, cursor, children, function):
        text = self.slice(cursor)
        if text in ('true', 'false'):
            self.wrap(cursor, 'constant', text, 'false' if text == 'true' else 'true', 'veldrawMutation::flip(%d, ')

    def of_return_stmt(self, cursor, children, function):
        if not children or function is None:
            return
        value, result = children[0], function.result_type.get_canonical()
        inner = peeled(value)
        text = ' '.join(self.slice(value).split())
        if not text or inner.kind in (CursorKind.INTEGER_LITERAL, CursorKind.FLOATING_LITERAL, CursorKind.LAMBDA_EXPR):
            return
        if result.kind == TypeKind.BOOL:
            if not self.is_flipped_anyway(value):
                self.wrap(value, 'result', text, f'!({text})', 'veldrawMutation::flip(%d, static_cast<bool>(', '))')
        elif result.kind in NUMBERS:
            self.wrap(value, 'result', text, f'{text} + 1', 'veldrawMutation::offByOne(%d, ')
        elif result.kind in (TypeKind.RECORD, TypeKind.ENUM, TypeKind.POINTER) and not NOTHING.fullmatch(text):
            end = self.behind_semicolon(cursor)
            if end is not None:
                self.wrap(cursor, 'result', text, '{}', '{ if (veldrawMutation::is(%d)) return {}; ', ' }', end)
