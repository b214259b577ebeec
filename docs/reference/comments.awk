# SPDX-License-Identifier: MIT
# Doxygen's view of a public header, whose comments are plain: a comment in front of declarations that follow one
# another without a blank line is the documentation of each of them, one behind a declaration is that one's, and one
# that stands by itself belongs to the file. Private parts are left out.

# Texts, as Doxygen reads them: what it would take for a command, for HTML or for emphasis loses that meaning.
function plain(text,    out, i, c, is_code) {
    for (i = 1; i <= length(text); ++i) {
        c = substr(text, i, 1)
        if (c == "`") is_code = !is_code
        else if (is_code) c = c
        else if (c == "<") c = "&lt;"
        else if (c == ">") c = "&gt;"
        else if (c ~ /[\\@#*]/) c = "\\" c
        else if (c == "_" && (substr(" " text, i, 1) !~ /[A-Za-z0-9]/ || substr(text, i + 1, 1) !~ /[A-Za-z0-9]/)) c = "\\_"
        out = out c
    }
    return out
}

function print_block(    i) {
    for (i = 1; i <= size; ++i) print indent "/// " block[i]
}

# Of the members that every class has, the first has the words about all of them.
function print_special(code) {
    if (code ~ /~/) print indent "/// Releases what it owns."
    else if (code ~ /&& other\)/) print indent "/// Moves."
    else print indent "/// Copies."
}

function is_special(code) { return code ~ /( |&)operator=\(|~km|^ *(km[A-Za-z]*)\([^,]*& other\)/ }

function forget() { size = 0; is_used = 0 }

function end_run() {
    if (size > 0 && !is_used && indent == "") {
        print "/// @file"
        print_block()
        print ""
    }
    forget()
}

# Whether the line begins something that can be documented.
function begins_declaration(code) {
    return is_complete && code !~ /^ *(#(pragma|include|if|else|elif|endif|undef)|static_assert|KM_CLASSES_|(public|protected):|}|$)/
}

# The words about each code of advice stand in the table of the rules alone, the first file given.
FILENAME ~ /kmLintRules/ {
    if (match($0, /{LINT_[A-Z_]+, "[^"]*", LINT_[A-Z]+/)) {
        split(substr($0, RSTART + 1, RLENGTH - 1), cell, ", ")
        severity = tolower(substr(cell[3], length("LINT_") + 1))
    } else if (/^ *KM_TEXT\("/) {
        text = $0
        sub(/^ *KM_TEXT\("/, "", text)
        sub(/"\), KM_TEXT.*/, "", text)
        gsub(/\\"/, "\"", text)
        rule[cell[1]] = plain(cell[2] ", " severity ": " text)
    }
    next
}

FNR == 1 { is_complete = 1; print ""; next }  # the licence

/^private:/ { is_private = 1 }
/^};/ { is_private = 0 }
is_private { next }

/^ *$/ { end_run(); after_trailing = 0; print ""; next }

/^ *\/\// {
    text = $0
    sub(/^ *\/\/ ?/, "", text)
    match($0, /^ */)
    if (after_trailing && RLENGTH > code_indent) { print substr($0, 1, RLENGTH) "///< " plain(text); next }
    if (in_enumeration) next  # a heading between the values
    if (is_used || size == 0) { forget(); indent = substr($0, 1, RLENGTH) }
    block[++size] = plain(text)
    next
}

{
    code = $0
    comment = ""
    if (match(code, /  \/\/ /)) {
        comment = plain(substr(code, RSTART + RLENGTH))
        code = substr(code, 1, RSTART - 1)
    }
    if (/^#pragma once/) { end_run(); print ""; next }
    if (begins_declaration(code) && size > 0 && !(is_used && comment != "")) {
        if (is_used && is_special(code)) print_special(code)
        else print_block()
        is_used = 1
    }
    name = code
    gsub(/[^A-Z_]/, "", name)
    if (in_enumeration && name in rule) comment = rule[name]
    match($0, /^ */)
    code_indent = RLENGTH
    after_trailing = comment != ""
    print code (comment == "" ? "" : "  ///< " comment)
    if (code ~ /^ *enum .*{$/) in_enumeration = 1
    if (code ~ /^ *};/) in_enumeration = 0
    if (code ~ /{$/) forget()  # inside, other comments count
    is_complete = code ~ /[;{}:]$/ || code ~ /^KM_CLASSES_/ || code ~ /^ *#/ || in_enumeration
}

END { end_run() }
