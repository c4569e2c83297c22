// The window that a message or a file dialog belongs to.
#pragma once

class QWidget;

/// The active window; when none is, as at the start or while another program has the focus, the first one on show. Null
/// when there is none.
QWidget* FenetreDessous();
