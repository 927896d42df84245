# Run as a script: makes the resources of the page from the FILES of a FOLDER, in the folder TARGET. All files but the
# start page stand below a folder named by the digest of all, which the start page's addresses lead through. So such
# an address never means other content, and a browser need not ask again.
cmake_minimum_required(VERSION 3.16)

set(digests "")
foreach(file IN LISTS FILES)
    file(SHA256 "${FOLDER}/${file}" digest)
    string(APPEND digests "${file} ${digest}\n")
endforeach()
string(SHA256 digest "${digests}")
string(SUBSTRING "${digest}" 0 16 digest)

file(READ "${FOLDER}/index.html" page)
string(REGEX REPLACE "(href|src)=\"([a-z0-9_-]+\\.[a-z0-9]+)" "\\1=\"${digest}/\\2" page "${page}")
file(WRITE "${TARGET}/index.html" "${page}")

set(entries "<file alias=\"index.html\">${TARGET}/index.html</file>\n")
list(REMOVE_ITEM FILES index.html)
foreach(file IN LISTS FILES)
    string(APPEND entries "<file alias=\"${digest}/${file}\">${FOLDER}/${file}</file>\n")
endforeach()
file(WRITE "${TARGET}/web.qrc" "<RCC><qresource prefix=\"/web\">\n${entries}</qresource></RCC>\n")
