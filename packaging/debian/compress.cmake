# Debian wants manual pages and changelogs compressed, with neither a name nor a time inside (Debian
# Policy 12.1 and 12.7). CPack runs this once everything else stands in its staging folder.

set(page ${CPACK_TEMPORARY_DIRECTORY}/usr/share/man/man1/kestrava.1)
set(changelog ${CPACK_TEMPORARY_DIRECTORY}/usr/share/doc/kestrava/changelog.Debian)
file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/changelog ${changelog})
file(CHMOD ${changelog} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
execute_process(COMMAND gzip -9n ${page} ${changelog} COMMAND_ERROR_IS_FATAL ANY)

# Whatever rights this system gives to new folders: a package that brings /usr with 0700 takes it from
# everybody.
file(CHMOD_RECURSE ${CPACK_TEMPORARY_DIRECTORY} DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE
     OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
