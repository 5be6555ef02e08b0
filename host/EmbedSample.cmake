# cmake -DSAMPLE=folder -DOUTPUT=file.cpp -P EmbedSample.cmake
# Turns the scripts that order.txt names into one source, so that the host finds its forest wherever it is installed.
file(STRINGS "${SAMPLE}/order.txt" names)
set(source "#include \"host/SampleScripts.h\"\n\nnamespace kvx::host {\n\nnamespace {\n\n// The length comes with the literal: counting half a megabyte is more than a compiler does.\nusing namespace std::string_view_literals;\nconstexpr std::string_view kScripts[] = {\n")
foreach(name IN LISTS names)
    file(READ "${SAMPLE}/${name}" content)
    string(APPEND source "    R\"kvxsql(${content})kvxsql\"sv,\n")
endforeach()
string(APPEND source "};\n\n}  // namespace\n\n"
    "std::span<const std::string_view> SampleScripts()\n{\n    return kScripts;\n}\n\n}  // namespace kvx::host\n")
file(WRITE "${OUTPUT}" "${source}")
