# Shows Doxygen a header the way people read it: a setter shares the comment of the getter in the line
# above it, and properties are known by their accessors. Lines keep their numbers.

/^ *Q_PROPERTY\(/ { inProperty = 1 }
inProperty {
    if (/\)$/) {
        inProperty = 0
    }
    print ""
    next
}

/^ *void set[A-Z][A-Za-z0-9]*\(.*\)(;| \{.*\})?$/ && previous ~ /\(\) const(;| \{.*\})$/ {
    getter = previous
    sub(/\(\) const.*$/, "", getter)
    sub(/.*[ *&]/, "", getter)
    print "/** \\copydoc " getter "() const */ " $0
    previous = $0
    next
}

{
    previous = $0
    print
}
