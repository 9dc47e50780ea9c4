# Writes the tool's manual pages and completions into FOLDER, under the names with which they are installed.
#
# cmake -DTOOL=<vantro-profile> -DFOLDER=<folder> -P make_files.cmake
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER}/man1)

function(write_output file)
    execute_process(COMMAND ${TOOL} ${ARGN} OUTPUT_FILE ${FOLDER}/${file} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

write_output(vantro-profile completion bash)
write_output(_vantro-profile completion zsh)
write_output(vantro-profile.fish completion fish)

execute_process(COMMAND ${TOOL} man --list OUTPUT_VARIABLE pages COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" pages "${pages}")
foreach(page IN LISTS pages)
    string(REGEX REPLACE "^vantro-profile-?" "" subcommand ${page})
    write_output(man1/${page}.1 man ${subcommand})
endforeach()
file(TOUCH ${FOLDER}/made)
