# cmake -DCHMCMD=... -DPROJECT_FILE=<.hhp> -DOUTPUT_FOLDER=<folder> -P CompileHelp.cmake
# Compiles the help project with chmcmd into OUTPUT_FOLDER (chmcmd writes the compiled file
# into its working folder) and keeps its report there in chmcmd.log. A picture, style sheet
# or topic that a topic names but that is missing fails the build. chmcmd also reports the
# anchors of topics in a subfolder as undefined even when they are there: the tests check
# links and anchors in the compiled file instead.
file(MAKE_DIRECTORY "${OUTPUT_FOLDER}")
execute_process(COMMAND "${CHMCMD}" "${PROJECT_FILE}"
  WORKING_DIRECTORY "${OUTPUT_FOLDER}"
  OUTPUT_VARIABLE report ERROR_VARIABLE report RESULT_VARIABLE result)
file(WRITE "${OUTPUT_FOLDER}/chmcmd.log" "${report}")
if(NOT result EQUAL 0 OR report MATCHES "couldn't find it on disk")
  message(FATAL_ERROR "chmcmd could not compile ${PROJECT_FILE}:\n${report}")
endif()
