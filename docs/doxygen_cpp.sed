# The same for the C++ header, whose comments are lines of //.
/^\/\/ clang-format /d
/^\/\//s@<\([a-z]*\)>@\&lt;\1\&gt;@g
1s@^// @/// \\file\n/// @
s@^//\( \|$\)@/// @
