# cmake -DFOLDER=... -DLIST=... -P Checksums.cmake: lists the clips and exercise lists in FOLDER with
# their checksums, in the form that "sha256sum --check" reads.
file(GLOB_RECURSE names RELATIVE ${FOLDER} ${FOLDER}/voice/* ${FOLDER}/exercise/*)
list(SORT names)
set(lines "")
foreach(name IN LISTS names)
  file(SHA256 "${FOLDER}/${name}" sum)
  string(APPEND lines "${sum}  ${name}\n")
endforeach()
file(WRITE ${LIST} "${lines}")
