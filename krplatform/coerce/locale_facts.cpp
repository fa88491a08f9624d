#include <krplatform/coerce/locale_facts.h>
#include <krplatform/text/casing.h>

#include <algorithm>

namespace kr::detail
{

namespace
{

void AddWord(DateFacts & facts, TextView word, DateWord::Kind kind, int value)
{
    if (word.empty())
        return;
    Text folded(word);
    std::transform(folded.begin(), folded.end(), folded.begin(), LowerCase);
    auto const isSame = [&](DateWord const & known) { return known.folded == folded; };
    if (std::none_of(facts.words.begin(), facts.words.end(), isSame))
        facts.words.push_back({std::move(folded), kind, value});
}

/// Names that end in a point are read without it too.
void AddMonths(DateFacts & facts, MonthNames const & names)
{
    for (std::size_t index = 0; index < names.size(); ++index)
    {
        TextView name = names[index];
        AddWord(facts, name, DateWord::Kind::month, static_cast<int>(index) + 1);
        if (name.ends_with(OLESTR('.')))
            name.remove_suffix(1);
        AddWord(facts, name, DateWord::Kind::month, static_cast<int>(index) + 1);
    }
}

/// Literals that are words, such as the Japanese for year, month and day. All others are marks of one unit.
bool IsWord(TextView literal)
{
    WCHAR const first = literal.front();
    bool const isLetter = first >= 0x80 || (first >= OLESTR('a') && first <= OLESTR('z')) ||
                          (first >= OLESTR('A') && first <= OLESTR('Z'));
    return literal.size() > 1 || isLetter;
}

/// What a literal holds beside blanks.
TextView Core(TextView literal)
{
    while (!literal.empty() && IsSpace(literal.front()))
        literal.remove_prefix(1);
    while (!literal.empty() && IsSpace(literal.back()))
        literal.remove_suffix(1);
    return literal;
}

std::vector<PatternPiece> Pieces(TextView pattern)
{
    std::vector<PatternPiece> pieces;
    std::size_t position = 0;
    for (PatternPiece piece; NextPiece(pattern, position, piece);)
        pieces.push_back(piece);
    return pieces;
}

/// Takes the words among the literals and gives the mark, the first other literal between two fields; 0 for none.
/// `endsPattern` tells whether the mark stands behind the last field too.
WCHAR ReadLiterals(DateFacts & facts, TextView pattern, std::vector<PatternPiece> const & pieces, bool & endsPattern)
{
    WCHAR mark = 0;
    endsPattern = false;
    for (std::size_t index = 0; index < pieces.size(); ++index)
    {
        TextView const core = pieces[index].letter ? TextView() : Core(pieces[index].In(pattern));
        if (core.empty())
            continue;
        bool const isLast = index + 1 == pieces.size();
        if (IsWord(core))
            AddWord(facts, core, DateWord::Kind::filler, 0);
        else if (isLast)
            endsPattern = core.front() == mark;
        else if (index > 0 && !mark)
            mark = core.front();
    }
    return mark;
}

void ReadDatePattern(DateFacts & facts)
{
    facts.datePieces = Pieces(facts.shortDate);
    WCHAR const mark = ReadLiterals(facts, facts.shortDate, facts.datePieces, facts.markEndsDate);
    facts.dateMark = mark ? mark : OLESTR('/');
    auto const field = std::find_if(facts.datePieces.begin(), facts.datePieces.end(),
                                    [](PatternPiece const & piece) { return piece.letter != 0; });
    WCHAR const first = field == facts.datePieces.end() ? OLESTR('M') : field->letter;
    facts.order = first == OLESTR('y')   ? DateOrder::yearMonthDay
                  : first == OLESTR('d') ? DateOrder::dayMonthYear
                                         : DateOrder::monthDayYear;
}

void ReadTimePattern(DateFacts & facts)
{
    bool markEndsTime = false;
    facts.timePieces = Pieces(facts.longTime);
    WCHAR const mark = ReadLiterals(facts, facts.longTime, facts.timePieces, markEndsTime);
    facts.timeMark = mark ? mark : OLESTR(':');
    facts.halfBeforeTime = !facts.timePieces.empty() && facts.timePieces.front().letter == OLESTR('t');
}

} // namespace

void CompleteDateFacts(DateFacts & facts)
{
    facts.words.clear();
    for (MonthNames const * names :
         {&facts.monthNames, &facts.shortMonthNames, &facts.monthNamesInDates, &facts.shortMonthNamesInDates})
        AddMonths(facts, *names);
    AddWord(facts, facts.am, DateWord::Kind::halfOfDay, 0);
    AddWord(facts, facts.pm, DateWord::Kind::halfOfDay, 1);
    // understood in every locale
    AddWord(facts, OLESTR("am"), DateWord::Kind::halfOfDay, 0);
    AddWord(facts, OLESTR("pm"), DateWord::Kind::halfOfDay, 1);
    AddWord(facts, OLESTR("a"), DateWord::Kind::halfOfDay, 0);
    AddWord(facts, OLESTR("p"), DateWord::Kind::halfOfDay, 1);
    ReadDatePattern(facts);
    ReadTimePattern(facts);
    std::sort(facts.words.begin(), facts.words.end(),
              [](DateWord const & left, DateWord const & right) { return left.folded.size() > right.folded.size(); });
}

LocaleFacts const & InvariantFacts()
{
    static LocaleFacts const facts = []
    {
        LocaleFacts made;
        made.currency.symbol = OLESTR("\u00A4");
        made.date.shortDate = OLESTR("MM/dd/yyyy");
        made.date.longTime = OLESTR("HH:mm:ss");
        made.date.am = OLESTR("AM");
        made.date.pm = OLESTR("PM");
        made.date.monthNames = {OLESTR("January"),   OLESTR("February"), OLESTR("March"),    OLESTR("April"),
                                OLESTR("May"),       OLESTR("June"),     OLESTR("July"),     OLESTR("August"),
                                OLESTR("September"), OLESTR("October"),  OLESTR("November"), OLESTR("December")};
        made.date.shortMonthNames = {OLESTR("Jan"), OLESTR("Feb"), OLESTR("Mar"), OLESTR("Apr"),
                                     OLESTR("May"), OLESTR("Jun"), OLESTR("Jul"), OLESTR("Aug"),
                                     OLESTR("Sep"), OLESTR("Oct"), OLESTR("Nov"), OLESTR("Dec")};
        made.yes = OLESTR("True");
        made.no = OLESTR("False");
        CompleteDateFacts(made.date);
        return made;
    }();
    return facts;
}

} // namespace kr::detail
