# Makes Doxygen comments of the comments in the public C headers.
# Angle brackets in comments are no markup.
/^\(\/\*\| \*\)/s@<\([A-Za-z]\)@\&lt;\1@g
# The one at the head describes the file.
1s@^/\* @/** \\file\n * @
# A comment on one line describes what follows it at once; before an empty line it is a heading.
2,$ {
    /^\/\* .*\*\/$/ {
        N
        /\n$/!s@^/\* @/** @
        b
    }
    s@^/\* @/** @
}
# Paragraphs.
s@^ \* \(Errors\{0,1\}\|Special\|Method\|Overflow\)\([^:]*:\)@ *\n * \1\2@
