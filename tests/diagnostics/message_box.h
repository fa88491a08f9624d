// A message box that remembers what it was asked to show.
#pragma once

#include <krplatform/system/messagebox.h>
#include <krplatform/text/cstring.h>

namespace kr::test
{

/// Stands in for the message box while it lives.
class MessageBoxRecorder
{
public:
    explicit MessageBoxRecorder(int answer) : m_former(AfxSetMessageBoxHandler(Show))
    {
        s_answer = answer;
        s_shown = 0;
    }
    ~MessageBoxRecorder() { AfxSetMessageBoxHandler(m_former); }
    MessageBoxRecorder(MessageBoxRecorder const &) = delete;
    MessageBoxRecorder & operator=(MessageBoxRecorder const &) = delete;

    int Shown() const { return s_shown; }
    CString Text() const { return s_text; }
    unsigned int Style() const { return s_style; }
    unsigned int HelpContext() const { return s_helpContext; }

private:
    static int Show(WCHAR const * text, unsigned int style, unsigned int helpContext)
    {
        ++s_shown;
        s_text = text;
        s_style = style;
        s_helpContext = helpContext;
        return s_answer;
    }

    static inline int s_answer = 0;
    static inline int s_shown = 0;
    static inline CString s_text;
    static inline unsigned int s_style = 0;
    static inline unsigned int s_helpContext = 0;

    AfxMessageBoxHandler m_former;
};

} // namespace kr::test
