execute_process(
  COMMAND ${NM} --undefined-only ${LIBRARY}
  OUTPUT_VARIABLE imports
  ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)

# Where these are not found, nothing was read.
foreach(name memcpy abort)
  if(NOT imports MATCHES " U ${name}\n")
    message(FATAL_ERROR "no ${name} among the imports of ${LIBRARY}")
  endif()
endforeach()

set(files "f?open(at)?|fd?open|freopen|creat|mmap|readlink|realpath|opendir|unlink|remove|rename")
set(connections "socket|connect|bind|getaddrinfo|gethostbyname")
set(programs "system|popen|v?fork|exec[lv]p?e?|posix_spawnp?|dlopen")
set(environment "(secure_)?getenv|setlocale")
set(classes "_ZNK?St[0-9]+basic_(if|of|f)stream.*|_ZNK?St10filesystem.*|_ZNSt6thread.*")
string(REPLACE "\n" ";" imports "${imports}")
foreach(import IN LISTS imports)
  if(import MATCHES " U ((${files}|${connections}|${programs}|${environment})(64)?|${classes})$")
    message(FATAL_ERROR "the library uses ${CMAKE_MATCH_1}")
  endif()
endforeach()
