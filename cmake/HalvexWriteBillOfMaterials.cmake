# Writes BILL, see HalvexBillOfMaterials.cmake. FILES are lists of a file of ours, and the packages that were compiled
# into it, with commas between them. Where there is no dpkg, libraries stand in it by their names, without versions.
cmake_minimum_required(VERSION 3.20)

find_program(DPKG_QUERY dpkg-query)
set(packages "")
set(relationships "")
set(known "")

function(quote result text)
  string(REPLACE "\\" "\\\\" text "${text}")
  string(REPLACE "\"" "\\\"" text "${text}")
  string(REPLACE "\n" "\\n" text "${text}")
  set(${result} "\"${text}\"" PARENT_SCOPE)
endfunction()

# add_package(<name> <version, or empty> <licence> <supplier> <reference, or empty>)
macro(add_package name version licence supplier reference)
  string(REGEX REPLACE "[^A-Za-z0-9.-]" "-" id "SPDXRef-${name}")
  if(NOT id IN_LIST known)
    list(APPEND known "${id}")
    quote(licence_text "${licence}")
    quote(supplier_text "${supplier}")
    set(entry "{\"SPDXID\": \"${id}\", \"name\": \"${name}\", \"filesAnalyzed\": false, \"supplier\": ${supplier_text},
      \"downloadLocation\": \"NOASSERTION\", \"licenseConcluded\": \"NOASSERTION\", \"licenseDeclared\": ${licence_text},
      \"copyrightText\": \"NOASSERTION\"}")
    if(NOT "${version}" STREQUAL "")
      string(JSON entry SET "${entry}" versionInfo "\"${version}\"")
    endif()
    if(NOT "${reference}" STREQUAL "")
      string(JSON entry SET "${entry}" externalRefs "[{\"referenceCategory\": \"PACKAGE-MANAGER\",
        \"referenceType\": \"purl\", \"referenceLocator\": \"${reference}\"}]")
    endif()
    list(APPEND packages "${entry}")
  endif()
endmacro()

macro(relate from kind to)
  list(APPEND relationships
    "{\"spdxElementId\": \"${from}\", \"relationshipType\": \"${kind}\", \"relatedSpdxElement\": \"${to}\"}")
endmacro()

# A package of Debian; "id" is its identifier afterwards.
macro(add_debian_package name)
  execute_process(COMMAND "${DPKG_QUERY}" -W "-f=\${Version} \${Architecture}\n" "${name}"
    OUTPUT_VARIABLE answer OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  string(REGEX MATCH "^([^ ]*) ?([^ \n]*)" answer "${answer}") # the first, where there are several architectures
  set(version "${CMAKE_MATCH_1}")
  set(architecture "${CMAKE_MATCH_2}")
  string(REPLACE "+" "%2B" escaped_version "${version}")
  string(REPLACE ":" "%3A" escaped_version "${escaped_version}")
  string(REPLACE "+" "%2B" escaped_name "${name}")
  add_package("${name}" "${version}" NOASSERTION "Organization: Debian"
    "pkg:deb/debian/${escaped_name}@${escaped_version}?arch=${architecture}")
endmacro()

# The package that a library belongs to; "id" is its identifier afterwards.
macro(add_library_of_system soname)
  if(DEFINED "id_of_${soname}")
    set(id "${id_of_${soname}}")
  else()
    set(owner "")
    if(DPKG_QUERY)
      execute_process(COMMAND "${DPKG_QUERY}" -S "*/${soname}" OUTPUT_VARIABLE owner ERROR_QUIET)
      string(REGEX MATCH "^[^:\n]+" owner "${owner}")
    endif()
    if(owner)
      add_debian_package("${owner}")
    else()
      add_package("${soname}" "" NOASSERTION NOASSERTION "")
    endif()
    set("id_of_${soname}" "${id}")
  endif()
endmacro()

foreach(line IN LISTS FILES)
  string(REPLACE "," ";" parts "${line}")
  list(POP_FRONT parts file)
  get_filename_component(name "${file}" NAME)
  string(REGEX REPLACE "\\.so\\..*$" ".so" name "${name}")
  add_package("${name}" "${VERSION}" "LicenseRef-Halvex" "Organization: ${VENDOR}" "")
  set(own "${id}")
  relate(SPDXRef-DOCUMENT DESCRIBES "${own}")

  execute_process(COMMAND "${READELF}" -d "${file}" OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "\\(NEEDED\\)[^\n]*" needed "${dynamic}")
  foreach(entry IN LISTS needed)
    string(REGEX REPLACE ".*\\[(.*)\\].*" "\\1" soname "${entry}")
    if(soname MATCHES "^ld-linux")
      continue() # a part of the C library
    elseif(soname MATCHES "^libHalvex\\.so")
      set(id SPDXRef-libHalvex.so)
    else()
      add_library_of_system("${soname}")
    endif()
    relate("${own}" DYNAMIC_LINK "${id}")
  endforeach()
  foreach(package IN LISTS parts)
    if(package AND DPKG_QUERY)
      add_debian_package("${package}")
      relate("${own}" STATIC_LINK "${id}")
    endif()
  endforeach()
endforeach()

list(REMOVE_DUPLICATES relationships)
list(JOIN packages ",\n" packages)
list(JOIN relationships ",\n" relationships)
string(TIMESTAMP created "%Y-%m-%dT%H:%M:%SZ" UTC) # or SOURCE_DATE_EPOCH
string(SHA256 unique "${packages}${relationships}")
quote(licence "${LICENSE}")
set(document "{
  \"spdxVersion\": \"SPDX-2.3\", \"dataLicense\": \"CC0-1.0\", \"SPDXID\": \"SPDXRef-DOCUMENT\",
  \"name\": \"halvex-${VERSION}\", \"documentNamespace\": \"${URL}/spdx/${VERSION}-${unique}\",
  \"creationInfo\": {\"created\": \"${created}\", \"creators\": [\"Tool: Halvex-${VERSION}\"]},
  \"hasExtractedLicensingInfos\": [
    {\"licenseId\": \"LicenseRef-Halvex\", \"name\": \"Licence of Halvex\", \"extractedText\": ${licence}}],
  \"packages\": [${packages}], \"relationships\": [${relationships}]}")
string(JSON document GET "${document}") # sound, and in one form
file(WRITE "${BILL}" "${document}\n")
