# Turns the page PAGE into HTML, with the program CMARK_GFM; links to other pages go to their HTML.
execute_process(COMMAND ${CMARK_GFM} --extension table --to html ${PAGE}
                OUTPUT_VARIABLE body COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCH "<h1>([^<]*)</h1>" heading "${body}")
set(title "${CMAKE_MATCH_1}")
string(REGEX REPLACE "href=\"([^\":]+)\\.md\"" "href=\"\\1.html\"" body "${body}")
file(WRITE ${HTML} "<!DOCTYPE html>
<html lang=\"en\">
<head>
<meta charset=\"utf-8\">
<meta name=\"viewport\" content=\"width=device-width\">
<title>${title}</title>
<style>
body { max-width: 52em; margin: 2em auto; padding: 0 1em; font-family: sans-serif; line-height: 1.45; }
table { border-collapse: collapse; margin: 1em 0; }
th, td { border: 1px solid #ccc; padding: 0.3em 0.6em; text-align: left; vertical-align: top; }
code, pre { background: #f4f4f4; font-family: monospace; }
code { overflow-wrap: anywhere; }
pre { padding: 0.6em; overflow-x: auto; }
pre code { overflow-wrap: normal; }
img { max-width: 100%; }
</style>
</head>
<body>
${body}</body>
</html>
")
