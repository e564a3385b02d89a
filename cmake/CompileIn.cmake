# Writes SOURCE, which defines text::FUNCTION() as the bytes of FILE. They stand there one by one: Visual C++ takes no text
# of more than 65,535 bytes in quotes.
file(READ ${FILE} bytes HEX)
string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
file(WRITE ${SOURCE} "#include \"text/built_in.h\"

std::string_view text::${FUNCTION}() {
  static constexpr char kBytes[] = {
${bytes}};
  return {kBytes, sizeof kBytes};
}
")
