# Prints the C++ pieces of a page as one source, with the page's line numbers for the compiler to name.
# What is printed is what readers copy: nothing is put around it.
/^```/ {
    inCode = /^```cpp/
    if (inCode) {
        printf "#line %d \"%s\"\n", FNR + 1, page
    }
    next
}
inCode
