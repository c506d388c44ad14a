# Writes the guide as web pages: cmake -D CMARK=... -D DOCS=... -D OUT=... -P GuidePages.cmake
#
# The pages of DOCS/guide become OUT/*.html, README.md being index.html, and those of DOCS/formats,
# to which they lead, OUT/formats/*.html, beside the files that those name. Links between them lead
# to the web pages, headings have the anchors that those links name; a link to any other page of the
# documentation becomes plain text.

# to_html(PAGE VARIABLE): the page as the converter writes it.
function(to_html page variable)
  execute_process(COMMAND ${CMARK} --extension table ${page}
    OUTPUT_VARIABLE html COMMAND_ERROR_IS_FATAL ANY)
  set(${variable} "${html}" PARENT_SCOPE)
endfunction()

# anchor_headings(HTML VARIABLE): each heading gets its text as its anchor, in small letters, with "-"
# for blanks and without other signs.
function(anchor_headings html variable)
  set(done "")
  while(html MATCHES "<h([1-6])>([^\n]*)</h[1-6]>")
    set(heading "${CMAKE_MATCH_0}")
    set(level ${CMAKE_MATCH_1})
    set(text "${CMAKE_MATCH_2}")
    string(REGEX REPLACE "<[^>]*>|&[a-z]+;" "" anchor "${text}")
    string(TOLOWER "${anchor}" anchor)
    string(REGEX REPLACE "[^a-z0-9 _-]" "" anchor "${anchor}")
    string(REPLACE " " "-" anchor "${anchor}")
    string(FIND "${html}" "${heading}" place)
    string(SUBSTRING "${html}" 0 ${place} before)
    string(LENGTH "${heading}" length)
    math(EXPR place "${place} + ${length}")
    string(SUBSTRING "${html}" ${place} -1 html)
    string(APPEND done "${before}<h${level} id=\"${anchor}\">${text}</h${level}>")
  endwhile()
  set(${variable} "${done}${html}" PARENT_SCOPE)
endfunction()

# lead_to_pages(HTML VARIABLE): links to Markdown pages become links to web pages.
function(lead_to_pages html variable)
  string(REPLACE "href=\"README.md" "href=\"index.md" html "${html}")
  string(REPLACE "href=\"../guide/README.md" "href=\"../guide/index.md" html "${html}")
  string(REGEX REPLACE "href=\"([a-z0-9-]+)\\.md" "href=\"\\1.html" html "${html}")
  string(REGEX REPLACE "href=\"\\.\\./formats/([a-z0-9-]+)\\.md" "href=\"formats/\\1.html" html "${html}")
  string(REGEX REPLACE "href=\"\\.\\./guide/([a-z0-9-]+)\\.md" "href=\"../\\1.html" html "${html}")
  string(REGEX REPLACE "<a href=\"\\.\\./[^\"]*\\.md[^\"]*\">" "<a>" html "${html}")
  set(${variable} "${html}" PARENT_SCOPE)
endfunction()

# write_page(PAGE FILE UP): UP leads from the file's folder to that of the guide.
function(write_page page file up)
  to_html(${page} content)
  lead_to_pages("${content}" content)
  anchor_headings("${content}" content)
  string(REGEX MATCH "<h1[^>]*>([^\n]*)</h1>" heading "${content}")
  set(title "${CMAKE_MATCH_1}")
  string(REGEX REPLACE "<[^>]*>" "" title "${title}")
  get_filename_component(name ${file} NAME)
  if(up STREQUAL "")
    string(REPLACE "href=\"${name}\"" "href=\"${name}\" aria-current=\"page\"" pages "${pages}")
  endif()
  string(REPLACE "href=\"" "href=\"${up}" pages "${pages}")
  file(READ ${DOCS}/html/page.html html)
  foreach(part title up pages content)
    string(REPLACE "@${part}@" "${${part}}" html "${html}")
  endforeach()
  file(WRITE ${OUT}/${file} "${html}")
endfunction()

# The guide's own list of its pages stands above each of them.
to_html(${DOCS}/guide/README.md contents)
lead_to_pages("${contents}" contents)
set(pages "<ul>\n<li><a href=\"index.html\">Guide</a></li>\n")
while(contents MATCHES "<a href=\"([a-z0-9-]+\\.html)\">([^<]*)</a>")
  string(APPEND pages "<li><a href=\"${CMAKE_MATCH_1}\">${CMAKE_MATCH_2}</a></li>\n")
  string(REPLACE "${CMAKE_MATCH_0}" "" contents "${contents}")
endwhile()
string(APPEND pages "</ul>")

file(REMOVE_RECURSE ${OUT})
file(GLOB guide ${DOCS}/guide/*.md)
foreach(page IN LISTS guide)
  get_filename_component(name ${page} NAME_WE)
  string(REPLACE README index name ${name})
  write_page(${page} ${name}.html "")
endforeach()
file(GLOB formats ${DOCS}/formats/*.md)
foreach(page IN LISTS formats)
  get_filename_component(name ${page} NAME_WE)
  write_page(${page} formats/${name}.html ../)
endforeach()
file(COPY ${DOCS}/formats/ DESTINATION ${OUT}/formats PATTERN "*.md" EXCLUDE)
file(COPY ${DOCS}/guide/pictures ${DOCS}/html/guide.css DESTINATION ${OUT})
