#include "options.h"

#include "encoding.h"
#include "messages.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <map>

namespace layeredit
{

namespace
{

/// The arguments as they came.
struct Texts
{
    std::vector<std::string> drawings, layers, excluded, where, set;
    std::string output, backup, format = "table", encoding, trace;
};

std::map<std::string, Format> const s_formats = {
    {"table", Format::Table}, {"tsv", Format::Tsv}, {"json", Format::Json}};

void Describe(CLI::App & app, Texts & texts, Options & options)
{
    app.set_help_flag("-h,--help", "this text");
    app.set_version_flag("--version", "layeredit 141.0.0");
    app.add_option("DRAWING", texts.drawings, "DXF drawings")->required();

    auto const add = [&app](char const * name, auto & target, char const * text, char const * value)
    { return app.add_option(name, target, text)->type_name(value)->allow_extra_args(false); };
    add("-l,--layer", texts.layers, "layers of that name, with * and ?, in any case", "PATTERN");
    add("--not", texts.excluded, "but not these", "PATTERN");
    app.add_flag("--all", options.all, "all layers");
    add("--where", texts.where, "only layers that have this value", "PROP=VALUE");

    add("-s,--set", texts.set, "gives the layers that value", "PROP=VALUE");
    CLI::Option * const output = add("-o", texts.output, "writes the changed drawing there", "FILE");
    CLI::Option * const inPlace = app.add_flag("--in-place", options.inPlace, "writes it in its own place");
    add("--backup", texts.backup, "keeps the old one under its name with this behind", "SUFFIX")->needs(inPlace);
    app.add_flag("-n,--dry-run", options.dryRun, "writes nothing, tells the changes");
    output->excludes(inPlace);

    app.add_flag("--grid", options.grid, "shows the layers as one, with what differs");
    add("--format", texts.format, "of the list", "")->check(CLI::IsMember({"table", "tsv", "json"}));
    add("--encoding", texts.encoding, "code page of drawings that tell none", "PAGE");
    app.add_flag("--xref", options.references, "changes layers that come from references too");
    app.add_flag("--add-appid", options.addApplication, "registers the application that a description needs");
    add("--trace", texts.trace, "writes a trace file", "FILE");
    app.add_flag("-q,--quiet", options.quiet, "tells failures only");
    app.footer("PROP is Name, Color, LineType, LineWeight, Plot, On, Frozen, Locked or Description.\n"
               "Exit status: 0 done, 1 a drawing was refused or cannot be read or written, 2 wrong call,\n"
               "3 no layer matches, 4 a property cannot be held by a drawing or layer.");
}

std::vector<CString> Widened(std::vector<std::string> const & texts)
{
    std::vector<CString> widened;
    for (std::string const & text : texts)
        widened.push_back(WidenArgument(text));
    return widened;
}

bool ReadAssignment(CString const & text, std::vector<Assignment> & assignments)
{
    int const sign = text.Find(OLESTR('='));
    if (sign < 0)
        return Tell(eNoEquals, text);
    CString const name = text.Left(sign);
    CString const value = text.Mid(sign + 1);
    PropertyRow const * const row = FindProperty(name);
    if (!row)
        return Tell(eUnknownProperty, name, AllPropertyNames());
    Assignment assignment = {row, CKrProperty(row->name, CString(), row->type, true, true)};
    if (!ReadValue(value, assignment.property, assignment.given))
        return Tell(eBadValue, row->name, value, row->values);
    assignments.push_back(assignment);
    return true;
}

bool ReadAssignments(std::vector<std::string> const & texts, std::vector<Assignment> & assignments)
{
    for (std::string const & text : texts)
        if (!ReadAssignment(WidenArgument(text), assignments))
            return false;
    return true;
}

bool CheckSettings(Options const & options)
{
    for (std::size_t index = 0; index < options.set.size(); ++index)
    {
        CString const & name = options.set[index].property.GetName();
        if (name == propertyName)
            return Tell(eFixedProperty, name);
        for (std::size_t earlier = 0; earlier < index; ++earlier)
            if (options.set[earlier].property.GetName() == name)
                return Tell(eSetTwice, name);
    }
    return true;
}

bool CheckTogether(Options const & options, Texts const & texts)
{
    bool const selects = options.all || !options.layers.empty() || !options.excluded.empty();
    if (!options.set.empty() && !selects)
        return Tell(eNoSelection);
    if (!options.set.empty() && options.grid)
        return Tell(eBadCall, OLESTR("--grid changes nothing, so it does not go with --set"));
    if (options.set.empty() && (options.inPlace || !options.output.IsEmpty() || options.dryRun))
        return Tell(eBadCall, OLESTR("-o, --in-place and --dry-run need --set"));
    if (!options.output.IsEmpty() && options.drawings.size() > 1)
        return Tell(eBadCall, OLESTR("-o takes one drawing; --in-place takes many"));
    bool const isSuffix = options.backupSuffix.FindOneOf(OLESTR("/\\")) < 0;
    if (!texts.backup.empty() && !isSuffix)
        return Tell(eBadCall, OLESTR("--backup takes what is put behind a name, without a slash"));
    return true;
}

bool Take(Texts const & texts, Options & options)
{
    options.drawings = Widened(texts.drawings);
    options.layers = Widened(texts.layers);
    options.excluded = Widened(texts.excluded);
    options.output = WidenArgument(texts.output);
    options.backupSuffix = WidenArgument(texts.backup);
    options.traceFile = WidenArgument(texts.trace);
    options.format = s_formats.at(texts.format);
    if (!texts.encoding.empty())
    {
        options.codePage = CodePageOfOption(WidenArgument(texts.encoding));
        if (options.codePage == 0)
            return Tell(eUnknownEncoding, WidenArgument(texts.encoding));
    }
    if (!ReadAssignments(texts.where, options.where) || !ReadAssignments(texts.set, options.set))
        return false;
    for (Assignment & assignment : options.where)
        if (assignment.given > 0.0)
            assignment.property.SetInt(static_cast<int>(std::lround(assignment.given * 100.0))); // drawings may hold it
    return CheckSettings(options) && CheckTogether(options, texts);
}

} // namespace

std::optional<int> ReadOptions(int count, char const * const * arguments, Options & options)
{
    CLI::App app("Lists and changes the layers of DXF drawings.", "layeredit");
    Texts texts;
    Describe(app, texts, options);
    try
    {
        app.parse(count, arguments);
    }
    catch (CLI::ParseError const & error)
    {
        if (error.get_exit_code() == 0)
            return app.exit(error);
        CString reason = WidenArgument(error.what());
        Tell(eBadCall, reason);
        return eWrongCall;
    }
    if (Take(texts, options))
        return std::nullopt;
    return eWrongCall;
}

} // namespace layeredit
