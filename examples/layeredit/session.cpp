#include "session.h"

#include "change.h"
#include "encoding.h"
#include "grid_text.h"
#include "layer_mapping.h"
#include "progress.h"
#include "selection.h"

#include <krcore/diagnostics/krerrorstack.h>
#include <krcore/diagnostics/krexception_guard.h>
#include <krcore/diagnostics/krtrace.h>

#include <algorithm>
#include <iostream>

namespace layeredit
{

namespace
{

std::ostream * ProgressStream(Options const & options)
{
    return !options.quiet && IsErrorTerminal() ? &std::cerr : nullptr;
}

/// "plan.dxf: R2004, ANSI_1252, 17 layers, saved 2025-11-11 12:45:24, current layer "0"".
CString Summary(Drawing const & drawing)
{
    CString summary;
    std::size_t const count = drawing.layers.size();
    summary.Format(OLESTR("%s: %s, %s, %d %s"), drawing.title, VersionName(drawing), PageName(drawing), count,
                   count == 1 ? OLESTR("layer") : OLESTR("layers"));
    if (CString const saved = SavedTime(drawing); !saved.IsEmpty())
        summary += OLESTR(", saved ") + saved;
    if (!drawing.currentLayer.IsEmpty())
        summary += OLESTR(", current layer \"") + OnOneLine(drawing.currentLayer) + OLESTR("\"");
    return summary;
}

class Session
{
public:
    Session(CString const & title, Options const & options, LayerList & list)
        : m_title(title), m_options(options), m_list(list)
    {
    }

    /// False, with an error on the stack.
    bool Run();

private:
    bool Read();
    bool Select();
    bool Edit();
    bool Write(Change const & change);
    void LeaveOutReferences();

    CString m_title;
    Options const & m_options;
    LayerList & m_list;
    Drawing m_drawing;
    std::vector<Layer> m_layers;
    std::vector<Layer *> m_selected;
};

bool Session::Read()
{
    m_drawing.title = m_title;
    if (!MakeFileName(m_title, m_drawing.fileName))
        return false;
    {
        Progress progress(m_title, ProgressStream(m_options));
        if (!ReadDrawing(m_drawing, m_options.codePage, progress))
            return false;
    }
    m_layers.resize(m_drawing.layers.size());
    for (std::size_t index = 0; index < m_layers.size(); ++index)
    {
        m_layers[index].record = &m_drawing.layers[index];
        if (!ReadLayer(m_drawing, m_drawing.layers[index], m_layers[index].set))
            return false;
    }
    return true;
}

bool Session::Select()
{
    for (Layer & layer : m_layers)
        if (IsSelected(m_options, layer.set))
            m_selected.push_back(&layer);
    return !m_selected.empty() || Tell(eNoLayer, m_title, m_layers.size());
}

void Session::LeaveOutReferences()
{
    auto const left = std::stable_partition(m_selected.begin(), m_selected.end(),
                                            [this](Layer const * layer)
                                            { return m_options.references || !IsOfReference(layer->set); });
    if (left != m_selected.end())
        Tell(eNoteReferences, m_title, static_cast<int>(m_selected.end() - left));
    m_selected.erase(left, m_selected.end());
}

bool Session::Write(Change const & change)
{
    Target target = {m_drawing.fileName, m_title, m_options.backupSuffix};
    if (!m_options.inPlace)
        target.title = m_options.output;
    if (!m_options.inPlace && !MakeFileName(m_options.output, target.fileName))
        return false;
    if (m_options.inPlace && change.patches.empty())
        return true;
    Progress progress(m_title, ProgressStream(m_options));
    return WriteDrawing(m_drawing, change.patches, target, progress);
}

bool Session::Edit()
{
    LeaveOutReferences();
    Change change;
    if (!ChangeLayers(m_drawing, m_options, m_selected, change))
        return false;
    bool const writes = m_options.Writes();
    if (writes && !Write(change))
        return false;
    FlushMessages(m_options.quiet);
    CKrTrace & trace = *CKrTrace::GetObjectW(true);
    for (CString const & line : change.lines)
    {
        trace.Trace(m_title + OLESTR(": ") + line, OLESTR("layeredit"), writes ? 1 : 0);
        if (!writes)
            std::cout << line << "\n";
    }
    CString summary;
    summary.Format(OLESTR("%s: %d of %d %s %s"), m_title, change.layers, m_layers.size(),
                   m_layers.size() == 1 ? OLESTR("layer") : OLESTR("layers"),
                   writes ? OLESTR("changed") : OLESTR("would change"));
    if (!m_options.quiet)
        std::cerr << summary << "\n";
    return true;
}

bool Session::Run()
{
    try
    {
        if (!Read())
            return false;
        if (!m_options.quiet)
            std::cerr << Summary(m_drawing) << "\n";
        FlushMessages(m_options.quiet);
        if (!Select())
            return false;
        if (!m_options.set.empty())
            return Edit();
        std::vector<CKrPropertySet *> sets;
        for (Layer * const layer : m_selected)
            sets.push_back(&layer->set);
        if (m_options.grid)
            WriteGrid(std::cout, sets);
        else
            m_list.Add(sets);
        return true;
    }
    KR_CATCH_ALL_TEXT("session", 151, m_title)
}

} // namespace

ExitStatus WorkOn(CString const & title, Options const & options, LayerList & list)
{
    try
    {
        Session(title, options, list).Run();
    }
    catch (CKrException const & exception)
    {
        CKrTrace::GetObjectW(true)->Trace(exception, false);
        CKrError error = CKrError::StringError(exception.GetErrorMessage(false));
        CKrErrorStack::GetObjectW(true)->PushError(error);
    }
    return FlushMessages(options.quiet);
}

} // namespace layeredit
