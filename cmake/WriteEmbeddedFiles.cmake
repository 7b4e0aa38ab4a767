# Run by pagivo_embed: writes OUTPUT, which defines the array NAME declared in HEADER with the bytes
# of FILES (separated by bars).
string(REPLACE "|" ";" FILES "${FILES}")
set(definitions "")
set(elements "")
set(index 0)
foreach(file IN LISTS FILES)
  file(READ ${file} bytes HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
  string(APPEND definitions "constexpr std::uint8_t kFile${index}[] = {${bytes}};\n")
  string(APPEND elements "kFile${index}, ")
  math(EXPR index "${index} + 1")
endforeach()
file(WRITE ${OUTPUT} "#include \"${HEADER}\"\n\nnamespace pagivo {\n\nnamespace {\n\n"
  "${definitions}\n}  // namespace\n\n"
  "const std::array<std::span<const std::uint8_t>, ${index}> ${NAME}{${elements}};\n\n"
  "}  // namespace pagivo\n")
