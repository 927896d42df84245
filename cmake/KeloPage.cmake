# Run as a script: makes the resources of the page from the FILES of a FOLDER, in the folder TARGET. All files but the
# start page stand below a folder named by the digest of all, which the start page's addresses lead through. So such
# an address never means other content, and a browser need not ask again. Beside the start page: API, the API's own
# description.
cmake_minimum_required(VERSION 3.16)

set(short_files "")
if(ESBUILD)
    set(short_files ${FILES})
    list(FILTER short_files INCLUDE REGEX "\\.(css|js)$")
    file(REMOVE_RECURSE "${TARGET}/short")
    execute_process(COMMAND "${ESBUILD}" --minify --charset=utf8 --log-level=warning "--outdir=${TARGET}/short"
        ${short_files} WORKING_DIRECTORY "${FOLDER}" COMMAND_ERROR_IS_FATAL ANY)
endif()

set(digests "")
set(entries "")
list(REMOVE_ITEM FILES index.html)
foreach(file IN LISTS FILES)
    set(path "${FOLDER}/${file}")
    if(file IN_LIST short_files)
        set(path "${TARGET}/short/${file}")
    endif()
    file(SHA256 "${path}" digest)
    string(APPEND digests "${file} ${digest}\n")
    string(APPEND entries "<file alias=\"@DIGEST@/${file}\">${path}</file>\n")
endforeach()
string(SHA256 digest "${digests}")
string(SUBSTRING "${digest}" 0 16 digest)

file(READ "${FOLDER}/index.html" page)
string(REGEX REPLACE "(href|src)=\"([a-z0-9_-]+\\.[a-z0-9]+)" "\\1=\"${digest}/\\2" page "${page}")
file(WRITE "${TARGET}/index.html" "${page}")

string(REPLACE "@DIGEST@" "${digest}" entries "${entries}")
string(PREPEND entries "<file alias=\"index.html\">${TARGET}/index.html</file>\n"
    "<file alias=\"openapi.yaml\">${API}</file>\n")
file(WRITE "${TARGET}/web.qrc" "<RCC><qresource prefix=\"/web\">\n${entries}</qresource></RCC>\n")
