# cmake -DFOLDER=... -DEARLIER=... -DLIST=... -P Checksums.cmake: lists the clips and exercise lists in
# FOLDER with their checksums, in the form that "sha256sum --check" reads. Behind "# ", which that
# passes over, follow the lines of EARLIER: what earlier versions brought and an upgrade left in place.
file(GLOB_RECURSE names RELATIVE ${FOLDER} ${FOLDER}/voice/* ${FOLDER}/exercise/*)
list(SORT names)
set(lines "")
foreach(name IN LISTS names)
  file(SHA256 "${FOLDER}/${name}" sum)
  string(APPEND lines "${sum}  ${name}\n")
endforeach()
file(STRINGS ${EARLIER} earlier)
foreach(line IN LISTS earlier)
  string(APPEND lines "# ${line}\n")
endforeach()
file(WRITE ${LIST} "${lines}")
