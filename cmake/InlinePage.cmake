# Makes one self-contained page: the style sheet and the script that the page names are put in
# its place, so that the page opens from a folder with nothing beside it, and @PROJECT_VERSION@
# becomes the project's version.
#
#   cmake -DPAGE=<page.html> -DCSS=<style.css> -DMODULES=<modules.txt> -DVERSION=<version>
#         -DOUT=<out.html> -P InlinePage.cmake
#
# The script is a set of ES modules beside the list that names them, each after those it
# imports (lines starting with # are comments); the page names the last one. A browser does not load modules from file://, so they are joined into one plain script:
# each module's import lines go, its exports become names of the one scope they share. The page
# must name the style sheet and the last module exactly once, on the lines
#   <link rel="stylesheet" href="NAME.css">   and   <script src="NAME.mjs"></script>
foreach(var PAGE CSS MODULES VERSION OUT)
  if(NOT DEFINED ${var})
    message(FATAL_ERROR "InlinePage: -D${var}=... is missing")
  endif()
endforeach()

file(READ "${PAGE}" page)
file(READ "${CSS}" css)
file(STRINGS "${MODULES}" modules REGEX "^[^#]")
get_filename_component(folder "${MODULES}" DIRECTORY)
list(TRANSFORM modules PREPEND "${folder}/")
list(TRANSFORM modules APPEND .mjs)
set(js "")
foreach(module IN LISTS modules)
  file(READ "${module}" text)
  string(REGEX REPLACE "(^|\n)import [^\n]*;\n" "\\1" text "${text}")
  string(REGEX REPLACE "(^|\n)export " "\\1" text "${text}")
  string(REGEX MATCH "(^|\n)(import|export)[ {]" left "${text}")
  if(left)
    message(FATAL_ERROR "InlinePage: ${module} has an import or export that is not one line")
  endif()
  # Joined, the modules share one scope: a constant or class declared at the top of two of them
  # would stop the whole script with a SyntaxError in the browser, and a function would silently
  # take the other's place. The mutation run's helpers (stry...) are the same in every module.
  string(REGEX MATCHALL "(^|\n)(async )?(function|const|let|class) [A-Za-z_$][A-Za-z0-9_$]*" names "${text}")
  list(FILTER names EXCLUDE REGEX " stry[A-Za-z0-9_]*$")
  foreach(name IN LISTS names)
    string(REGEX REPLACE ".* " "" name "${name}")
    list(FIND declared "${name}" before)
    if(NOT before EQUAL -1)
      message(FATAL_ERROR "InlinePage: ${module} declares ${name}, as a module before it does")
    endif()
    list(APPEND declared ${name})
  endforeach()
  string(APPEND js "${text}\n")
endforeach()
list(GET modules -1 last)
get_filename_component(css_name "${CSS}" NAME)
get_filename_component(js_name "${last}" NAME)
string(REPLACE "@PROJECT_VERSION@" "${VERSION}" page "${page}")

# A closing tag inside the text would end the inlined element early and spill the rest into
# the page as text.
string(TOLOWER "${css}" css_lower)
string(TOLOWER "${js}" js_lower)
string(FIND "${css_lower}" "</style" at)
if(NOT at EQUAL -1)
  message(FATAL_ERROR "InlinePage: ${CSS} holds \"</style\", which would end the inlined style early")
endif()
string(FIND "${js_lower}" "</script" at)
if(NOT at EQUAL -1)
  message(FATAL_ERROR "InlinePage: the script holds \"</script\", which would end the inlined script early")
endif()

function(inline_once tag replacement)
  string(FIND "${page}" "${tag}" first)
  string(FIND "${page}" "${tag}" last REVERSE)
  if(first EQUAL -1 OR NOT first EQUAL last)
    message(FATAL_ERROR "InlinePage: ${PAGE} must hold ${tag} exactly once")
  endif()
  string(REPLACE "${tag}" "${replacement}" page "${page}")
  set(page "${page}" PARENT_SCOPE)
endfunction()

inline_once("<link rel=\"stylesheet\" href=\"${css_name}\">" "<style>\n${css}</style>")
# One scope of its own, so that no name of the script becomes a global of the page.
inline_once("<script src=\"${js_name}\"></script>" "<script>\n(function () {\n'use strict';\n\n${js}})();\n</script>")

file(WRITE "${OUT}" "${page}")
