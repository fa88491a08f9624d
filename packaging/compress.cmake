# Run by CPack over the files that it is about to pack: manual pages and change logs are kept compressed.
file(
    GLOB_RECURSE texts
    ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/*.1
    ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/changelog
    ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/changelog.Debian
)
foreach(text IN LISTS texts)
    execute_process(COMMAND gzip -9n ${text} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
