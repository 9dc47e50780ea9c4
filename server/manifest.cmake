# Writes the registration-free manifest of the server from its interface description, the one list of its classes:
#   cmake -DIDL=<file> -DOUT=<manifest> -DARCHITECTURE=<x86|amd64> -DVERSION=<a.b.c> -P manifest.cmake
# It reads the lines `[uuid(...), ...]` and the `library`, `interface` or `coclass` line under each.
file(STRINGS ${IDL} lines)
set(classes "")
set(interfaces "")
foreach(line IN LISTS lines)
    if(line MATCHES "uuid\\(([0-9A-Fa-f-]+)\\)")
        set(uuid ${CMAKE_MATCH_1})
        set(description "")
        if(line MATCHES "helpstring\\(\"([^\"]*)\"\\)")
            set(description ${CMAKE_MATCH_1})
        endif()
    elseif(line MATCHES "^library ([A-Za-z]+)")
        set(library ${CMAKE_MATCH_1})
        set(library_uuid ${uuid})
    elseif(line MATCHES "^interface ([A-Za-z]+) : ")
        string(APPEND interfaces
            "    <comInterfaceExternalProxyStub name=\"${CMAKE_MATCH_1}\" iid=\"{${uuid}}\" tlbid=\"{${library_uuid}}\"\n"
            "        proxyStubClsid32=\"{00020424-0000-0000-C000-000000000046}\"/>\n")
    elseif(line MATCHES "^coclass ([A-Za-z]+)")
        string(APPEND classes
            "        <comClass clsid=\"{${uuid}}\" description=\"${description}\" threadingModel=\"Apartment\"\n"
            "            progid=\"${library}.${CMAKE_MATCH_1}\" tlbid=\"{${library_uuid}}\">\n"
            "            <progid>${library}.${CMAKE_MATCH_1}.1</progid>\n"
            "        </comClass>\n")
    endif()
endforeach()
file(WRITE ${OUT}
"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>
<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">
    <assemblyIdentity type=\"win32\" name=\"${library}\" version=\"${VERSION}.0\" processorArchitecture=\"${ARCHITECTURE}\"/>
    <file name=\"${library}.dll\">
        <typelib tlbid=\"{${library_uuid}}\" version=\"1.0\" helpdir=\"\"/>
${classes}    </file>
${interfaces}</assembly>
")
