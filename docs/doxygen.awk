# The public headers as Doxygen reads them: a family is a group, and a comment documents every
# declaration from there to the next empty line; the others are described with their family. Comments
# appear as they are written.

# A line across the page, and the name of a family between two of them.
/^\/\* ==+ \*\/$/ {
    rule = !rule
    next
}
rule {
    if (families++)
        print "/** @} */"
    gsub(/^\/\* | \*\/$/, "")
    name = $0
    sub(/:.*/, "", name)
    head = "@defgroup " name " " $0 "\n@{\n"
    otherwise = "/** See @ref " name ". */"
    next
}
# Any other comment. Those of the file and of a family stand for themselves.
/^\/\*/ {
    if (FNR == 1)
        head = "@file\n"
    text = "/** " head "@verbatim\n"
    inside = 1
    sub(/^\/\* ?/, "")
}
inside {
    inside = !sub(/ ?\*\/$/, "")
    sub(/^ \* ?/, "")
    text = text $0 "\n"
    if (inside)
        next
    text = text "@endverbatim */"
    if (head)
        print text
    shared = head ? otherwise : text
    head = ""
    next
}
/^$/ {
    shared = otherwise
}
/^Z[A-Z]*_API|^enum|^typedef/ && shared {
    print shared
}
/^#define ZELM_IN_HEADER/ {
    print "/** For functions whose code stands in a header. */"
}
# A comment behind a declaration.
{
    sub(/ \/\* /, " /**< ")
    print
}
END {
    if (families)
        print "/** @} */"
}
