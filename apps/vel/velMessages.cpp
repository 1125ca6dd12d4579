#include "velMessages.h"

#include "vlnStringTable.h"

namespace {

constexpr char table_name[] = "vel_messages";

struct Text {
  velMessage message;
  const char* text;
};

constexpr Text texts[] = {
    {velMSG_NO_MEMORY, "there is not enough memory for this. Nothing was written."},
    {velMSG_UNEXPECTED, "this should not have happened: %1. Please report it."},
    {velMSG_RESULTS_NOT_WRITTEN, "the standard output: %1. The results are incomplete; write them somewhere else."},
    {velMSG_CANNOT_BE_WRITTEN, "it cannot be written"},
    {velMSG_LOG_NOT_OPENED, "%1: no log can be written there. Name another file with --log."},
    {velMSG_LOG_IS_NAMED, "%1: the log is an input or the output too. Name another file with --log."},
    {velMSG_LOG_NOT_WRITTEN, "%1: the log is incomplete: the file cannot be written. Name another one with --log."},
    {velMSG_NO_REASON, "%1: it failed and no reason was given."},
    {velMSG_NOTHING_WRITTEN, "Nothing was written."},

    {velMSG_TRY_HELP, "%1 Try `%2 --help`."},
    {velMSG_NO_COMMAND, "a command is missing"},
    {velMSG_UNKNOWN_COMMAND, "there is no command \"%1\""},
    {velMSG_UNKNOWN_OPTION, "there is no option \"%1\""},
    {velMSG_NOT_KEY_VALUE, "\"%1\" is not of the form KEY=VALUE"},
    {velMSG_STANDARD_STREAM, "the standard streams are not supported; name a file"},
    {velMSG_OUTPUT_WITHOUT_NAME, "the name of the output is empty"},
    {velMSG_UNKNOWN_UNIT, "there is no unit \"%1\". Units: %2"},
    {velMSG_NO_COMMAND_BUT_TRANSLATE,
     "there is no command \"%1\"; files are translated with `vel translate IN... -o OUT`"},
    {velMSG_UNKNOWN_OPTION_OR_FILE, "there is no option \"%1\"; a file of that name goes behind `--`"},
    {velMSG_WORD_IS_MISSING, "%1 is missing"},
    {velMSG_VALUE_IS_MISSING, "%1: the %2 behind it is missing"},
    {velMSG_TAKES_NO_VALUE, "%1 takes no value"},
    {velMSG_GIVEN_TWICE, "%1 is given more than once"},
    {velMSG_WORD_TOO_MANY, "\"%1\" is a word too many"},
    {velMSG_PICTURE_IS_PAGE, "\"%1\" cannot be both the picture and the page"},
    {velMSG_NO_NAME_OF_PAGE,
     "%1: a page is not written under this extension. Use .html or .htm; for a picture, `--png FILE.png`."},
    {velMSG_NO_NAME_OF_PICTURE,
     "%1: a picture is not written under this extension. Use .png; for a page, `-o FILE.html`."},
    {velMSG_MEANT, "%1; did you mean \"%2\"?"},
    {velMSG_NOT_A_SIZE, "\"%1\" is no size of a picture: WIDTHxHEIGHT is expected, each from 1 to 16384"},

    {velMSG_PROGRAM_NOT_FOUND,
     "/proc/self/exe: %1. The program cannot tell where it is installed; make /proc available."},
    {velMSG_PLACE_TOO_DEEP, "%1: the name of this directory is too long. Install the program in a higher place."},
    {velMSG_NO_APP_DATA,
     "no application data directory could be made (tried %1); going on without a cache and without resource files of "
     "your own. Set QRM_HOME to a directory that you may write."},
    {velMSG_QRM_HOME_UNUSABLE, "%1: QRM_HOME names a directory that cannot be used. Going on with %2 instead."},

    {velMSG_NO_LIBRARIES, "%1: there are no translator libraries; `vel list` says more."},
    {velMSG_NO_USABLE_LIBRARY, "%1: there is no usable translator among %2; `vel list` says more."},
    {velMSG_CACHE_DAMAGED,
     "%1: this cache of translators is damaged, so every library that it does not name was opened. Run `vel cache "
     "refresh` to mend it."},
    {velMSG_CACHE_DAMAGED_MENDED,
     "%1: this cache of translators is damaged, so every library that it does not name was opened. It is written anew "
     "at the end; should this come again, `vel cache refresh` says what is in its way."},
    {velMSG_TRANSLATOR_UNUSABLE,
     "%1: its translator %2 cannot be used: %3 Run `vel cache refresh` if that library was replaced."},
    {velMSG_LIST_NO_LIBRARY, "No translators: %1 holds no usable library."},
    {velMSG_LIST_NO_DIRECTORY, "No translators: %1 is no directory."},
    {velMSG_WHY_NO_ENTRY, "it has no entry for its direction"},
    {velMSG_WHY_NO_OBJECT, "its entry gives no translator"},
    {velMSG_WHY_NO_CONVERSION, "a text that it gives of itself cannot be converted"},
    {velMSG_WHY_NO_DESCRIPTION, "it failed while describing itself"},

    {velMSG_INPUT_MISSING, "%1: %2. Check its name."},
    {velMSG_INPUT_IS_DIRECTORY, "%1: this is a directory. Name a file."},
    {velMSG_INPUT_IS_SPECIAL,
     "%1: this is no regular file (a pipe, socket or device). Save what it gives to a file and name that."},
    {velMSG_INPUT_UNREADABLE, "%1: it cannot be opened: %2."},
    {velMSG_INPUT_EMPTY, "%1: this file is empty. Ask for a fresh copy."},
    {velMSG_EMPTY_NAME, "(empty name)"},
    {velMSG_READ_BY_EXTENSION, "%1: its content does not show its format; it is read as %2 because of its extension."},
    {velMSG_INPUT_IS_UTF16,
     "%1: this text is encoded in UTF-16, which no format that is read here allows. Convert it to UTF-8, for instance "
     "with `iconv -f UTF-16 -t UTF-8`."},
    {velMSG_CONTENT_UNKNOWN,
     "%1: its content is of no known type. Formats that can be read: %2; choose one with --from."},
    {velMSG_NO_READER, "%1: this is a file of type %2, and no translator here reads it. Formats that can be read: %3."},
    {velMSG_NO_READER_OF_FORMAT,
     "%1: no translator reads this format. Formats that can be read: %2; choose one with --from."},
    {velMSG_FROM_IS_MISTAKEN, "%1: its content is %2, not %3. Leave --from out."},
    {velMSG_READER_NOT_BUILT,
     "%1: this is a file of type %2, which this installation was built without. Install %3 and build it anew."},

    {velMSG_NO_FORMAT_FOR_NAME,
     "%1: no format is written under this extension. Formats that can be written: %2; choose one with --to."},
    {velMSG_WRITER_NOT_BUILT,
     "%1: this format was left out when this installation was built. Install %2 and build it anew."},
    {velMSG_NO_WRITER, "%1: no translator writes this format. Formats that can be written: %2; choose one with --to."},
    {velMSG_OUTPUT_IS_INPUT, "%1: it is an input too; name another output. Nothing was written."},
    {velMSG_OUTPUT_IS_DIRECTORY, "%1: this names a directory; name a file in it. Nothing was written."},
    {velMSG_OUTPUT_IN_CIRCLE,
     "%1: this is a link that leads back to itself; remove it or name another output. Nothing was written."},
    {velMSG_OUTPUT_READ_ONLY, "%1: it may not be written to; name another output. Nothing was written."},
    {velMSG_OUTPUT_NO_DIRECTORY, "%1: its directory does not exist; make it first. Nothing was written."},
    {velMSG_OUTPUT_BELOW_FILE, "%1: it lies below a file; name another output. Nothing was written."},
    {velMSG_OUTPUT_DIRECTORY_CLOSED,
     "%1: its directory may not be written to; name another output. Nothing was written."},
    {velMSG_CANCELLED, "%1: cancelled."},
    {velMSG_CANCELLED_NOT_WRITTEN, "%1: cancelled; nothing was written."},
    {velMSG_OUTPUT_WITHOUT_EXTENSION,
     "%1: this name has no extension that tells a format. Formats that can be written: %2; choose one with --to."},
    {velMSG_NO_TEMPORARY_DIRECTORY,
     "%1: no directory can be made there: %2. Name a file with -o, or set TMPDIR to a directory that you may write."},
    {velMSG_TRANSLATED, "%1: %2 (%3, from %4)"},
    {velMSG_AND_OTHERS, "%1 and %2 others"},

    {velMSG_UNKNOWN_KEY, "%1 %2: %3 has no such option. %4"},
    {velMSG_KNOWN_KEYS, "Known are %1."},
    {velMSG_NO_KEYS, "It has none."},
    {velMSG_BAD_VALUE, "%1 %2: the value \"%3\" is not valid; %4."},
    {velMSG_TAKES_WHOLE, "a whole number is expected"},
    {velMSG_TAKES_REAL, "a number is expected, with a decimal point"},
    {velMSG_TAKES_OTHER_TEXT, "this text is not accepted"},
    {velMSG_TAKES_ONE_OF, "allowed are %1"},
    {velMSG_LINE_PASSED_OVER, "%1 This line was passed over."},
    {velMSG_UNKNOWN_FORMAT, "%1: no translator knows this format. Formats: %2."},
    {velMSG_NO_OPTIONS, "%1 has no options."},
    {velMSG_IN_RESOURCE_FILE, "In %1: %2 = %3"},
    {velMSG_TAKES_ABOVE_ZERO, "it must be a number greater than 0"},
    {velMSG_TAKES_FROM_ZERO, "it must be a number, 0 or greater"},
    {velMSG_TAKES_DIGITS, "it must be a whole number from 0 to 17"},
    {velMSG_TAKES_PIXELS, "it must be a whole number from 1 to 16384"},
    {velMSG_RANGE_ABOVE_ZERO, "greater than 0"},
    {velMSG_RANGE_FROM_ZERO, "0 or greater"},
    {velMSG_RANGE_DIGITS, "0 to 17"},
    {velMSG_RANGE_DEGREES, "0 to 180"},
    {velMSG_RANGE_PIXELS, "1 to 16384"},
    {velMSG_TAKES_BACKGROUND, "it must be transparent, or a colour as #RRGGBB"},
    {velMSG_BAD_VALUE_IN_FILE, "%1, line %2: \"%3\" is no value of %4: %5"},
    {velMSG_TAKES_DEGREES, "it must be a number of degrees from 0 to 180"},
    {velMSG_FOR_READING_ONLY, "%1 %2: this option is for reading and has no effect here; give it with --in."},
    {velMSG_FOR_WRITING_ONLY, "%1 %2: this option is for writing and has no effect here; give it with --out."},

    {velMSG_CACHE_NO_PLACE,
     "there is no application data directory to keep the cache in. Set QRM_HOME to a directory that you may write."},
    {velMSG_CACHE_KEPT, "%1: %2. The cache is as it was."},
    {velMSG_CACHE_NO_DIRECTORY, "%1: this directory cannot be made. The cache is as it was."},
    {velMSG_CACHE_TEXT_UNFIT,
     "%1: left out of the cache: a text that it gives of itself does not fit there. It is opened at every start."},
    {velMSG_CACHE_LEFT_OUT, "%1: left out of the cache: %2"},
    {velMSG_CACHE_WRITTEN, "%1: %2 written."},
    {velMSG_CACHE_NONE, "No cache: the next start opens every library and makes one where it can."},
    {velMSG_CACHE_OWN, "%1 (yours): %2"},
    {velMSG_CACHE_INSTALLED, "%1 (the installation's): %2"},
    {velMSG_CACHE_RECORD_UNUSABLE, "passed over: no such library, or damaged"},
    {velMSG_CACHE_TO_MEND, "%1: this file is damaged. Run `vel cache refresh` to mend it."},
    {velMSG_CACHE_NO_APP_DATA, "Nothing to clear: there is no application data directory."},
    {velMSG_CACHE_REMOVED, "%1: removed."},
    {velMSG_CACHE_NOT_THERE, "Nothing to clear: there is no %1."},
    {velMSG_CACHE_NOT_REMOVED, "%1: it cannot be removed: %2."},
    {velMSG_CACHE_OTHER_IN_FORCE, "The installation's own cache, %1, is in force."},

    {velMSG_FILE_WITHOUT_UNIT,
     "%1: the file has no length unit: its numbers count as millimetres. "
     "LENGTH_UNIT in a resource file of your own sets another one."},
    {velMSG_NO_UNIT, "none (millimetre by convention)"},
    {velMSG_UNIT_CONVERTED, "%1 (from %2)"},
    {velMSG_SERVICE_MISSING, "%1: this service library is missing; it was looked for in %2. %3"},
    {velMSG_SERVICE_UNUSABLE, "%1: this service library cannot be used. %2"},
    {velMSG_UNIT_OF_FILE_SHOWN, "Lengths are shown in the file's unit, %1."},

    {velMSG_PART, "part"},
    {velMSG_PARTS, "parts"},
    {velMSG_FACE, "face"},
    {velMSG_FACES, "faces"},
    {velMSG_VERTEX, "vertex"},
    {velMSG_VERTICES, "vertices"},
    {velMSG_RECORD, "record"},
    {velMSG_RECORDS, "records"},
    {velMSG_LIBRARY, "library"},
    {velMSG_LIBRARIES, "libraries"},
    {velMSG_EXACT_FACE, "exact face"},
    {velMSG_EXACT_FACES, "exact faces"},
};

vlnStringTable* make_table() {
  auto* table = new vlnStringTable(table_name);
  for (const auto& [message, text] : texts) table->add_string(message, text);
  return table;
}

// The value for the placeholder at offset `at` of `text`; null when there is no placeholder or no value for it.
const std::string_view* value_at(std::string_view text, std::size_t at,
                                 std::initializer_list<std::string_view> values) {
  if (text[at] != '%' || at + 1 == text.size()) return nullptr;
  const auto index = static_cast<std::size_t>(text[at + 1] - '1');
  return index < values.size() ? values.begin() + index : nullptr;
}

}  // namespace

std::string vel_text(velMessage message, std::initializer_list<std::string_view> values) {
  // Create the table once, but look it up by name: another table may have replaced it.
  static const vlnStringTable* const made = make_table();
  static_cast<void>(made);
  const utString found = vlnStringTable::find_string(table_name, message);
  const std::string_view text = found.view();
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (const std::string_view* value = value_at(text, i, values)) {
      filled += *value;
      ++i;
    } else {
      filled += text[i];
    }
  }
  return filled;
}

std::string vel_counted(std::size_t count, velMessage noun) {
  const auto several = static_cast<velMessage>(noun + 1);
  return std::to_string(count) + " " + vel_text(count == 1 ? noun : several);
}
