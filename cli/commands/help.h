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
    "Exit status: 0 done, 1 a call failed (or a batch line was not a request), 2 bad usage.";

inline constexpr auto classes = "Example:\n  vantro-profile classes --json";

inline constexpr auto describe =
    "An unknown class is exit status 1.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile describe\n"
    "  vantro-profile describe CPDNTrans";

inline constexpr auto command =
    "A line break or another control character in a parameter is refused, because what follows it could reach\n"
    "the host as a command of its own. Parameters that are passed on with --raw must come from a trusted source.\n"
    "An empty command is printed as an empty line: the parameters are not sufficient, and nothing is to be sent.\n"
    "Which parameters a class takes: vantro-profile describe CLASS.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile command CPDNTrans strKeyName=SMITH blnKeyExactMatch=true\n"
    "  vantro-profile command CPTTrans intKeyArraySize=1 'strKeyElArray()=1' 'strKeyElArray()=4' \\\n"
    "      'strKeySegArray()=' 'strKeySegArray()=2' 'strKeyPasArray()=' 'strKeyPasArray()=1'";

inline constexpr auto verify =
    "Without results, as for an empty screen, JSON is null.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile verify CPXTrans --table --screen screen.txt\n"
    "  vantro-profile verify CPDNTrans --screen first.txt --json > state.json\n"
    "  vantro-profile verify CPDNTrans --screen second.txt --state state.json";

inline constexpr auto batch =
    "Every line gets one response line; a line that is no request, or is longer than --max-line, gets an error,\n"
    "and the next one is read. After an interrupt, the response that is being written is completed.\n"
    "Exit status: 0 when every line was a request, whatever its result, 1 when one was not, 2 for bad usage.\n"
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
    "JSON is one line per display, in the order of the displays. A display with a line that cannot be read is left\n"
    "out; queries that a display cannot answer are listed under \"problems\". Both are reported on standard error. A\n"
    "line of more bytes than --max-line is such a line, and a text without line ends is one line. After an interrupt,\n"
    "the display that is being written is completed.\n"
    "Exit status: 0 all read and answered, 1 a display was left out or not answered in full, or there was none,\n"
    "2 bad usage or a file that cannot be read, 5 with --strict: there were warnings.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile parse --pretty display.txt\n"
    "  vantro-profile parse --pages capture.txt\n"
    "  vantro-profile parse --separator '###' displays.txt\n"
    "  vantro-profile parse -j 4 displays/*.txt > profiles.jsonl\n"
    "  vantro-profile parse --table < display.txt";

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
    "  vantro-profile elements PHI display.txt\n"
    "  vantro-profile elements RM --index 2 display.txt\n"
    "  vantro-profile elements ALL --selection RM --selection \"S  AP\" display.txt";

/// Follows `manyDisplays`.
inline constexpr auto notes =
    "Entry 0 of every list is empty. A note's number is its position under the notes header, with or without a "
    "filter.\n"
    "\n"
    "Examples:\n"
    "  vantro-profile notes display.txt\n"
    "  vantro-profile notes --qualifier A --search TICKET display.txt";

inline constexpr auto help =
    "Examples:\n"
    "  vantro-profile help\n"
    "  vantro-profile help parse";

inline constexpr auto completion =
    "The script completes subcommands, options, files, classes, the keys of a class (after command and verify) and "
    "the\n"
    "prefixes of elements.\n"
    "\n"
    "Examples:\n"
    "  source <(vantro-profile completion bash)\n"
    "  vantro-profile completion zsh > ~/.zsh/completions/_vantro-profile\n"
    "  vantro-profile completion fish > ~/.config/fish/completions/vantro-profile.fish";

inline constexpr auto man =
    "Examples:\n"
    "  vantro-profile man parse | man -l -\n"
    "  vantro-profile man parse > ~/.local/share/man/man1/vantro-profile-parse.1";

/// The parameters of `command` and `verify`.
inline constexpr auto parameter =
    "A parameter. The key determines its kind: str... a text, bln... true or false, int... a whole number,\n"
    "...() a list of texts: repeat KEY=VALUE, once per entry from entry 0 on (an empty one is KEY=)";

}  // namespace vantro::help
