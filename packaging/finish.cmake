# Run by CPack over the finished packages. Two things that it does not offer: it lets the scripts of a library's package call ldconfig,
# which a trigger does once for all packages, and it does not know which packages stand beside those of another architecture.
set(multi_arch_libvandrelcore141 same)
set(multi_arch_libvandrelcore-dev same)
set(multi_arch_krcore-tools foreign)

foreach(package IN LISTS CPACK_PACKAGE_FILES)
    get_filename_component(file ${package} NAME)
    string(REGEX REPLACE "_.*" "" name ${file})
    set(tree ${CPACK_TEMPORARY_DIRECTORY}/${name})
    execute_process(COMMAND dpkg-deb --raw-extract ${package} ${tree} COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE ${tree}/DEBIAN/postinst ${tree}/DEBIAN/postrm)
    file(READ ${tree}/DEBIAN/control control)
    string(REPLACE "\nSection:" "\nMulti-Arch: ${multi_arch_${name}}\nSection:" control "${control}")
    file(WRITE ${tree}/DEBIAN/control "${control}")
    execute_process(COMMAND dpkg-deb --root-owner-group -Zxz --build ${tree} ${package} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endforeach()
