// What --help prints about each command: examples above its options, the rest below them. Lines without an indent are
// joined to paragraphs and wrapped as wide as the terminal; see `sectionsOf` in cli/shell/page.h.
#pragma once

namespace vantro::help {

inline constexpr auto tool =
    "Examples:\n"
    "  vantro-profile command CPDNTrans strKeyName=SMITH\n"
    "  vantro-profile verify CPXTrans --screen screen.txt\n"
    "  vantro-profile verify --help\n"
    "\n"
    "Options of a subcommand follow its name. Those that read screens or displays, and command, print warnings on\n"
    "standard error: --quiet after their name hides them, and --strict makes the exit status 5 when there were any.\n"
    "\n"
    "Exit status: 0 done, 1 a call failed (or a batch line was not a request), 2 bad usage, 3 the parameters are not\n"
    "sufficient for a command, 4 no test recognised the screen, 5 with --strict: done, but with warnings, 141 the\n"
    "program that reads the output has closed the pipe.";

inline constexpr auto classes =
    "Exit status: 0 done, 2 bad usage.\n"
    "\n"
    "Example:\n"
    "  vantro-profile classes --json";

inline constexpr auto describe =
    "Exit status: 0 done, 1 the class or prefix is unknown, 2 bad usage.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile describe\n"
    "  vantro-profile describe CPDNTrans\n"
    "  vantro-profile describe PHI";

inline constexpr auto command =
    "A line break or another control character in a parameter is refused, because what follows it could reach\n"
    "the host as a command of its own. Parameters that are passed on with --raw must come from a trusted source.\n"
    "An empty command is printed as an empty line: the parameters are not sufficient, and nothing is to be sent.\n"
    "The keys that are missing are named on standard error, as for a call that fails for want of them.\n"
    "Which parameters a class takes: vantro-profile command CLASS --help.\n"
    "Exit status: 0 done, 1 the call failed, 2 bad usage, 3 the command is empty, 5 with --strict: there were\n"
    "warnings, as about a key that the class does not know.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile command CPDNTrans strKeyName=SMITH blnKeyExactMatch=true\n"
    "  vantro-profile command CPTTrans intKeyArraySize=1 'strKeyElArray()=1' 'strKeyElArray()=4' \\\n"
    "      'strKeySegArray()=' 'strKeySegArray()=2' 'strKeyPasArray()=' 'strKeyPasArray()=1'";

inline constexpr auto verify =
    "Without results, as for an empty screen, JSON is null. With --rows JSON is one array with an object for each\n"
    "entry; vantro-profile describe CLASS names the columns.\n"
    "With --positions JSON has a last member positions: by key, the pieces of the screen that the value was read "
    "from,\n"
    "each a line, column and length; text between them that the screen does not contain is inserted. Of a flag, it is\n"
    "the mark that set it. With --rows every row has one.\n"
    "A screen is recognised if one of the class's marks is on\n"
    "it, a flag is True or a value was read; otherwise all results are False or empty, and the exit status is 4. What\n"
    "a class looks for: vantro-profile verify CLASS --help.\n"
    "Exit status: 0 done, 1 the call failed, 2 bad usage, 4 no test of the class recognised the screen, 5 with\n"
    "--strict: there were warnings, as about tabs in the screen.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile verify CPXTrans --table --screen screen.txt\n"
    "  vantro-profile verify CPDNTrans --screen first.txt --json > state.json\n"
    "  vantro-profile verify CPDNTrans --screen second.txt --state state.json\n"
    "  vantro-profile verify CPLTTrans --screen list.txt --rows --csv > travellers.csv";

inline constexpr auto identify =
    "A screen is text lines or one unbroken text, as for verify. It is known by the command in its first line,\n"
    "which the host repeats, and by the marks that the classes look for; lines count from 1. The most likely class\n"
    "is the first; CProfile stands for a displayed profile, which parse reads.\n"
    "A table has a row per reason for one screen, and a row per screen for several. JSON is one object per screen\n"
    "with its \"source\" and \"candidates\", each a \"class\" with its \"reasons\": \"line\", \"mark\", \"meaning\", "
    "and the\n"
    "\"flag\" that verify sets.\n"
    "Exit status: 0 all screens are known, 2 bad usage or a file that cannot be read (the others are identified all\n"
    "the same), 4 a screen is unknown, 5 with --strict: there were warnings.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile identify screen.txt\n"
    "  vantro-profile identify --table captures\n"
    "  vantro-profile identify --json < screen.txt";

inline constexpr auto replay =
    "Cases are sample exchanges (NAME.exchange) and profile displays with what is expected of them as JSON: NAME.txt\n"
    "with NAME.json beside it, or profiles/NAME.txt with expected/NAME.json. In a folder, all of them are run.\n"
    "For each difference the report says what was expected, what came, and which lines of the screen it concerns;\n"
    "they count from 0, and a ruler counts their columns.\n"
    "--accept prints the same, and rewrites what was expected; every other byte of the file stays. Look at the\n"
    "differences first: what came may be wrong.\n"
    "JSON is one object per case: \"file\", \"expectation\", \"status\" (ok, failed, accepted or error), "
    "\"differences\" and\n"
    "\"error\".\n"
    "Exit status: 0 every case passed or was accepted, 1 a case failed, 2 bad usage, or a file that cannot be read or\n"
    "is broken (the other cases are run all the same).\n"
    "\n"
    "Examples:\n"
    "  vantro-profile replay samples\n"
    "  vantro-profile replay --junit results.xml samples/exchanges\n"
    "  vantro-profile replay --accept samples/exchanges/pdn_paging.exchange";

inline constexpr auto record =
    "A log is the text of a terminal's window: a line of > and a command, or the command as the host repeats it, and\n"
    "the screen below it, up to the next command. The class is recognised by the command and by the marks on the\n"
    "screen. A log has no parameters: a step has a command only if the command is always the same.\n"
    "JSON has a step per line: \"class\", \"params\" and \"screen\" (or \"response\") as in requests of batch, "
    "\"state\":\n"
    "\"previous\" to read the screen with the results of the step before. Without \"call\", a step with \"params\" "
    "builds a\n"
    "command; without \"class\", it is recognised by the screen. A file of batch requests can be recorded as it is.\n"
    "The results are what the program reads: a person must check them. What cannot be a step becomes a comment, with\n"
    "a warning.\n"
    "Exit status: 0 done, 1 no step was recorded, 2 bad usage, or the file exists, 5 with --strict: there were\n"
    "warnings.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile record terminal.log > conversation.exchange\n"
    "  vantro-profile record requests.jsonl --output conversation.exchange\n"
    "  vantro-profile replay conversation.exchange";

inline constexpr auto batch =
    "Every line gets one response line; a line that is no request, or is longer than --max-line, gets an error,\n"
    "and the next one is read. After an interrupt, the response that is being written is completed.\n"
    "A line end, tab or other control character in a screen hides marks: a warning on standard error names the line\n"
    "and the id of the request, and the response stays the same. A warning about an unknown class names the nearest\n"
    "class; with --strict, a screen that no test of its class recognised is a warning too.\n"
    "Exit status: 0 when every line was a request, whatever its result, 1 when one was not, 2 for bad usage, 5 with\n"
    "--strict: there were warnings.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile batch < requests.jsonl > responses.jsonl\n"
    "  echo '{\"class\":\"CPDTrans\",\"call\":\"CreateCommand\"}' | vantro-profile batch";

inline constexpr auto parse =
    "A display is lines of up to 80 characters, or one unbroken text. It ends with the line that contains END OF\n"
    "DISPLAY or with a line of the prompt > alone. Blank lines and prompts after its end still belong to it, and\n"
    "the next other line begins another display. Lines after the last end are a display without an end.\n"
    "Every line but a display's last is padded with blanks to 80 characters. --pages and --separator change where a\n"
    "display ends. Warnings say where that is doubtful and never change the output.\n"
    "\n"
    "Files that are compressed with gzip or Zstandard are unpacked. A folder stands for all files in it and in the\n"
    "folders below it, in the order of their names, without hidden ones.\n"
    "\n"
    "JSON is one line per display, in the order of the displays: its \"source\" (file, number in the file, first "
    "line)\n"
    "and its profile. A display with a line that cannot be read has an \"error\" instead; queries that a display "
    "cannot\n"
    "answer are listed under \"problems\". Both are reported on standard error, and totals when more than one display "
    "was\n"
    "read. A line of more bytes than --max-line cannot be read, and a text without line ends is one line. After an\n"
    "interrupt, the display that is being written is completed.\n"
    "With --positions every element and note, and the profile for its own texts, has a member positions: by value, "
    "the\n"
    "pieces of the display that it was read from, each a line (from 0 in the display), column (from 1) and length.\n"
    "Exit status: 0 all read and answered, 1 a display could not be read or not answered in full, or there was none,\n"
    "2 bad usage or a file that cannot be read, 5 with --strict: there were warnings.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile parse --pretty display.txt\n"
    "  vantro-profile parse --pages capture.txt\n"
    "  vantro-profile parse --separator '###' displays.txt\n"
    "  vantro-profile parse -j 4 displays/*.txt > profiles.jsonl\n"
    "  vantro-profile parse --id '{name}-{display}' --compact --only PPR,RM displays/*.txt\n"
    "  vantro-profile parse --csv displays/*.txt > elements.csv\n"
    "  vantro-profile parse --table < display.txt";

inline constexpr auto exportTables =
    "Displays are read as by parse. Every display gets a row in profiles, or in problems if it cannot be read; its\n"
    "elements and notes have rows of their own, which name it by display_id. The rows say which file, display and "
    "line\n"
    "they are from, and have a hash of the display. docs/archives.md describes all columns.\n"
    "\n"
    "A run that was interrupted is continued by the same command: what it has read to the end is not read again, and\n"
    "no display is written twice. Further files may be added later. A file that was changed since its export is\n"
    "refused.\n"
    "\n"
    "--check reads the files again and prints a line for each row that is missing, extra or different.\n"
    "Exit status: 0 all read and answered, or with --check nothing differs, 1 a display could not be read or not\n"
    "answered in full, a file has none, or with --check something differs, 2 bad usage or a file that cannot be read.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile export -j 4 archive --to tables\n"
    "  vantro-profile export -j 4 archive --to profiles.sqlite\n"
    "  vantro-profile export -j 4 archive --to profiles.sqlite --check";

/// For the subcommands that query displays.
inline constexpr auto manyDisplays =
    "Each display of the file gets an answer: JSON one object per line, in the order of the displays, tables with the\n"
    "display's number above them when there are several. Where a display ends: see vantro-profile parse --help.\n"
    "Exit status: 0 all answered, 1 a display was left out or not answered, or there was none, 2 bad usage or a file\n"
    "that cannot be read, 5 with --strict: there were warnings.\n";

/// Follows `manyDisplays`.
inline constexpr auto elements =
    "\n"
    "Examples:\n"
    "  vantro-profile elements RM --index 2 display.txt\n"
    "  vantro-profile elements PHI display.txt\n"
    "  vantro-profile elements ALL --selection RM --selection \"S  AP\" display.txt";

/// Follows `manyDisplays`.
inline constexpr auto notes =
    "Entry 0 of every list is empty. A note's number is its position under the notes header, with or without a "
    "filter.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile notes display.txt\n"
    "  vantro-profile notes --qualifier A --search TICKET display.txt";

inline constexpr auto explain =
    "Shows the screen with a ruler, the values where they were read, each decision in the order in which it was made,\n"
    "what values, marks and families mean, and lines that look like elements and are none with the reason. Lines "
    "count\n"
    "from 0, columns from 1. On a terminal values are coloured, otherwise letters below them name them.\n"
    "The file of a class is one screen, as for verify, and a display is found as parse finds it.\n"
    "A prefix without --index explains all elements of its family.\n"
    "Exit status: 0 explained, 1 the call or a query of it failed (it is explained all the same), or a display could\n"
    "not be read, 2 bad usage, 4 no test of the class recognised the screen (explained too), 5 with --strict: there\n"
    "were warnings.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile explain CPDNTrans screen.txt\n"
    "  vantro-profile explain PHI display.txt\n"
    "  vantro-profile explain profile display.txt --html display.html\n"
    "  vantro-profile explain CPDNTrans second.txt --state first.json --json";

inline constexpr auto help =
    "Exit status: 0 done, 2 bad usage, as an unknown subcommand.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile help\n"
    "  vantro-profile help parse";

inline constexpr auto completion =
    "The script completes subcommands, options, files, classes, the keys of a class (after command and verify) and "
    "the\n"
    "prefixes of elements.\n"
    "Exit status: 0 done, 2 bad usage, as an unknown shell.\n"
    "\n"
    "Examples:\n"
    "  source <(vantro-profile completion bash)\n"
    "  vantro-profile completion zsh > ~/.zsh/completions/_vantro-profile\n"
    "  vantro-profile completion fish > ~/.config/fish/completions/vantro-profile.fish";

inline constexpr auto man =
    "Exit status: 0 done, 2 bad usage, as an unknown subcommand.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile man parse | man -l -\n"
    "  vantro-profile man parse > ~/.local/share/man/man1/vantro-profile-parse.1";

/// The parameters of `command` and `verify`.
inline constexpr auto parameter =
    "A parameter. The key determines its kind: str... a text, bln... true or false, int... a whole number,\n"
    "...() a list of texts: repeat KEY=VALUE, once per entry from entry 0 on (an empty one is KEY=)";

}  // namespace vantro::help
