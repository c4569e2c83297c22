// The rescue copies of all open documents, and what becomes of the documents when the process is told to end.
#pragma once

#include "catalogue/documents/SecoursDuDocument.h"

class Cadre;

/// Does what there is to do for the copies, some milliseconds a document at most. True when there is more at once.
bool AvancerLesSecours(const Cadre& cadre, const MomentDeSecours& moment);

/// Before a process that is told to end goes without a question: unsaved changes, and what is being typed in an open
/// editor, are written into rescue copies, whose folders wait for the next start; the folders of saved documents go.
void LaisserAuSecours(const Cadre& cadre);

/// Whether the session may end: each document is asked about as when it closes, its window in front, also one in which
/// something is being typed. Documents whose changes are given up count as unchanged from here on, until
/// ReprendreLaSession. A save saves the table, and what is being typed goes into a rescue copy, whose folder then
/// stays: the editor was never validated. Without `questions` nobody can be asked: rescue copies are written, and the
/// answer is yes.
bool PeutFinirLaSession(Cadre& cadre, bool questions);
/// The session goes on after all: changes that were given up for its end are unsaved changes again.
void ReprendreLaSession(const Cadre& cadre);
