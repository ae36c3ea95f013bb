"""What tools/mutate changes: the mutants of a line, and a line that can be any of them as it runs."""
import re

# Words that no test can see, and lines that are no code of their own, or room alone.
BLANKED = re.compile(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])+\'|//.*')
LEFT_ALONE = re.compile(r"^\s*([\w.]+\.reserve\(|#|///|//|template|using|namespace|static_assert|\}|public:|private:|protected:|case \w+:$)")
OTHER = {"<=": "<", ">=": ">", "==": "!=", "!=": "==", "<": "<=", ">": ">="}
BOUND = "mutant::bound"  # of bound.h


def swaps(code):
    """Each mutant of a line as (what was done, from, to, text put there)."""
    for found in re.finditer(r"<=|>=|==|!=| < | > ", code):
        if code[found.start():found.start() + 3] == "<=>":
            continue
        was = found.group().strip()
        at_a_number = re.match(r" *-?[\d.]", code[found.end():]) or re.search(r"(?<![\w.])[\d.]+ *$", code[:found.start()])
        other = OTHER[was] if was in ("==", "!=") or at_a_number else f"{was} {BOUND} {was}"
        yield "comparison", found.start(), found.end(), found.group().replace(was, other)
    for found in re.finditer(r" ([+-]) (?!=)", code):
        yield "sign", found.start(1), found.end(1), "-" if found.group(1) == "+" else "+"
    for found in re.finditer(r"(?<=[=(,?:] )-(?=[\w(])", code):
        yield "sign", found.start(), found.end(), "+"
    for found in re.finditer(r" ([+-])= ", code):
        yield "sign", found.start(1), found.end(1), "-" if found.group(1) == "+" else "+"
    for found in re.finditer(r"(?<![\w.])(\d+\.?\d*(?:e[+-]?\d+)?)(?![\w.])", without_sizes(code)):
        number = found.group(1)
        other = number + " * 1.5" if not number.isdigit() else str(int(number) + 1)
        if code[:found.start()].endswith("-") and number == "1":
            other = "0"  # as good as any other where all below zero says that there is none
        elif "e" in number:
            other = number + " * 1e3"  # an order of magnitude, of which half as much again is as good
        elif "." in number and not float(number):
            other = "1.0"
        yield "constant", found.start(1), found.end(1), other
    for found in re.finditer(r"\b(true|false)\b", code):
        yield "constant", found.start(), found.end(), "false" if found.group() == "true" else "true"
    call = re.fullmatch(r"(\s*)(?!return|if|for|while|switch|else|throw|delete|case|new)[\w.:>-]+\((.*)\);\s*", code)
    if call and re.match(r"\s*[a-zA-Z_][\w.:]*(->[\w.:]+)*\(", code):
        yield "dropped call", len(call.group(1)), len(code.rstrip()), ";"
    assignment = re.fullmatch(r"(\s*)[\w.>-]*(?:\.|->)\w+(?:\[[^\]]*\]|\([^()]*\))?(?:\.\w+)? = .*;\s*", code)
    if assignment:
        yield "dropped assignment", len(assignment.group(1)), len(code.rstrip()), ";"
    condition = re.match(r"\s*(?:\} else )?if \((?!const|auto)(.*)\) ?(\{|[^{}]*;)$", code)
    if condition and balanced(condition.group(1)) and ";" not in condition.group(1):
        for word in ("true", "false"):
            yield "condition " + word, condition.start(1), condition.end(1), word
    for found in re.finditer(r"&&|\|\|", code):
        yield "condition", found.start(), found.end(), "||" if found.group() == "&&" else "&&"


def without_sizes(code):
    """The same line without how much room there is, of which more is as good."""
    sizes = r"^\s*(?!return\b)[\w:]+ \w+(?:\[\d+\])+(?:, \w+(?:\[\d+\])+)*|[Aa]rray<[^()<>]+, \d+>"
    return re.sub(sizes, lambda found: re.sub(r"\d", " ", found.group()), code)


def balanced(text):
    depth = 0
    for letter in text:
        depth += (letter == "(") - (letter == ")")
        if depth < 0:
            return False
    return depth == 0


def for_other_machines(line, stack):
    """Whether the line stands where only machines without the vectors of this one get."""
    if line.startswith("#if"):
        stack.append("__SSE2__" in line and "plain")
    elif line.startswith("#else") and stack[-1]:
        stack[-1] = "else"
    elif line.startswith("#endif"):
        stack.pop()
    return "else" in stack


def told(was, text):
    if BOUND in text:
        return f"{was} becomes {OTHER[was]}, of reals has half as much again behind it"
    return f"{was} becomes {text}"


def mutants_of(path, lines=None):
    stack = []
    for number, line in enumerate(path.read_text().split("\n"), 1):
        if for_other_machines(line, stack):
            continue
        if lines is not None and number not in lines or LEFT_ALONE.match(line):
            continue
        code = BLANKED.sub(lambda found: " " * len(found.group()), line).rstrip()
        for what, begin, end, text in swaps(code):
            yield {"file": path, "line": number, "what": what, "was": line, "begin": begin, "end": end, "put": text,
                   "text": line[:begin] + text + line[end:], "how": told(line[begin:end].strip(), text.strip())}


DECLARES = re.compile(r"(?:const |auto\b|[\w:]+(?:<.*>)?[&*]*\s+[&*]*\w+\s*[=({;,\[])")
NO_STATEMENT = re.compile(r"(?![A-Za-z_*])|(?:return|throw|if|else|for|while|do|switch|case|default|break|continue|class|"
                          r"struct|enum|public|private|protected|template|friend|using|static|new|delete)\b")


def closing(code, opening):
    depth = 0
    for at in range(opening, len(code)):
        depth += (code[at] in "([{") - (code[at] in ")]}")
        if depth == 0:
            return at
    return None


def places_to_choose(code, before):
    """Where a line can choose between its mutants as it runs, as (begin, end, kind)."""
    if re.search(r"constexpr|static |template|\[\[", code) or code[:1].strip():
        return
    at = len(code) - len(code.lstrip())
    if found := re.match(r"\s*(?:\} else )?(?:if|while) \(", code):
        end = closing(code, found.end() - 1)
        if end is None or re.match(r"\s*(?:const|auto)\b|[^=]*;", code[found.end():end]):
            return
        yield found.end(), end, "condition"
        at = end + 1 + len(code[end + 1:]) - len(code[end + 1:].lstrip())
    elif found := re.match(r"\s*for \([^;()]*;([^;]*);", code):
        yield found.start(1), found.end(1), "condition"
        return
    rest = code[at:]
    if not NO_STATEMENT.match(rest) and rest.endswith(";") and (not before or before[-1] in "{};:"):
        if not DECLARES.match(rest):
            if balanced(rest) and rest.count("{") == rest.count("}"):
                yield at, len(code), "statement"
            return
        found = re.match(r"[^=({]*[^=!<>({] = ([^={}][^{}]*);$", rest)
        if found and balanced(found.group(1)) and found.group(1).count(",") == 0:
            yield at + found.start(1), at + found.end(1), "expression"
        return
    for found in re.finditer(r"\breturn ([^;{}]+);", rest):
        yield at + found.start(1), at + found.end(1), "expression"


def with_choices(line, mutants, before):
    """A line that asks `is_mutant` what it is, and those of its mutants for which it can be that."""
    code = BLANKED.sub(lambda found: " " * len(found.group()), line).rstrip()
    chosen = []
    for begin, end, kind in sorted(places_to_choose(code, before), reverse=True):
        here = [m for m in mutants if begin <= m["begin"] and m["end"] <= end]
        as_it_is = line[begin:end]
        text = {"statement": f"{{ {as_it_is} }}", "condition": f"bool({as_it_is})", "expression": f"({as_it_is})"}[kind]
        for m in here:
            other = as_it_is[:m["begin"] - begin] + m["put"] + as_it_is[m["end"] - begin:]
            asked = f"is_mutant({m['number']})"
            if kind == "statement":
                text = f"if ({asked}) {{ {other} }} else {text}"
            elif kind == "condition":
                text = f"({asked} ? bool({other}) : {text})"
            else:
                text = f"({asked} ? ({other}) : {text})"
        chosen += here
        line = line[:begin] + text + line[end:]
    return line, chosen
