/* Identifiers of the library's string resources (vesk/Strings.rc). Plain
   #defines only: the Windows resource compiler reads this file too. */
#ifndef VESK_INTERNAL_RESOURCEIDS_H
#define VESK_INTERNAL_RESOURCEIDS_H

/* CRegExParseException: the pattern and the parser's message. */
#define IDS_REGEX_PARSE_ERROR 1001
/* CRegExParseException: the pattern, when the parser gave no message. */
#define IDS_REGEX_PARSE_ERROR_PATTERN_ONLY 1002
/* The parser message for a pattern the engine cannot run safely. */
#define IDS_REGEX_EMPTY_LOOP 1003

#endif
