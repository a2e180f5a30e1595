# Gives everything that goes into the package the time SOURCE_DATE_EPOCH, so that the package depends
# on what is packed alone.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec
                          touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} {} +
                  COMMAND_ERROR_IS_FATAL ANY)
endif()
