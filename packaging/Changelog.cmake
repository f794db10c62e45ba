# Reads CHANGELOG.md: `debian_changelog` and `metainfo_releases` tell of all releases in the words of the two,
# `release_date` is the newest one's.

# The release that has been read last ends here.
macro(end_release)
    if(items)
        execute_process(COMMAND date --utc --rfc-email --date=${date} OUTPUT_VARIABLE day
                        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
        string(APPEND debian_changelog "tarumine (${version}) unstable; urgency=medium\n\n"
                                       "${items}\n -- ${maintainer}  ${day}\n\n")
        string(APPEND metainfo_releases "    <release version=\"${version}\" date=\"${date}\">\n"
                                        "      <description>\n        <ul>\n${translated_items}"
                                        "        </ul>\n      </description>\n    </release>\n")
        set(items)
        set(translated_items)
    endif()
endmacro()

file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md lines ENCODING UTF-8)
foreach(line IN LISTS lines)
    string(REPLACE "&" "&amp;" markup "${line}")
    string(REPLACE "<" "&lt;" markup "${markup}")
    if(line MATCHES "^## ([0-9.]+), ([0-9-]+)$")
        end_release()
        set(version ${CMAKE_MATCH_1})
        set(date ${CMAKE_MATCH_2})
        if(NOT release_date)
            set(release_date ${date})
        endif()
    elseif(version AND line MATCHES "^- (.+)$")
        string(APPEND items "  * ${CMAKE_MATCH_1}\n")
        string(REGEX REPLACE "^- (.+)$" "          <li>\\1</li>\n" item "${markup}")
        string(APPEND translated_items "${item}")
    elseif(version AND line MATCHES "^  (.+)$")
        string(REGEX REPLACE "^  (.+)$" "          <li xml:lang=\"ja\">\\1</li>\n" item "${markup}")
        string(APPEND translated_items "${item}")
    elseif(version AND NOT "${line}" STREQUAL "")
        message(FATAL_ERROR "CHANGELOG.md has a line that is no heading, item or translation: ${line}")
    endif()
endforeach()
end_release()
string(STRIP "${debian_changelog}" debian_changelog)
string(STRIP "${metainfo_releases}" metainfo_releases)
