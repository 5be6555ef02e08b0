# cmake -DTEXTS=folder -DOUTPUT=file.cpp -P EmbedTexts.cmake
# Turns the text files into one source, so that the library finds its words wherever it is installed.
set(source "#include \"korvex_loc/EmbeddedTexts.h\"\n\nnamespace kvx::loc {\n")
foreach(name IN ITEMS catalogue captions columns)
    file(READ "${TEXTS}/${name}.tsv" content)
    string(SUBSTRING "${name}" 0 1 initial)
    string(TOUPPER "${initial}" initial)
    string(SUBSTRING "${name}" 1 -1 rest)
    string(APPEND source "\nconst std::string_view k${initial}${rest}File = R\"tsv(${content})tsv\";\n")
endforeach()
string(APPEND source "\n}  // namespace kvx::loc\n")
file(WRITE "${OUTPUT}" "${source}")
