// The named settings: every key of the section "Options" with the value that stands in for it until it is written.
#pragma once

#include <QString>
#include <QVariant>

#include <vector>

struct OptionNommee
{
    QString cle;
    QVariant defaut; ///< a number where callers compare as numbers, a text elsewhere
};

/// All of them, by key. Defaults that name the program's folder are those of this run.
std::vector<OptionNommee> ToutesLesOptions();

/// The named setting `cle` (any case) as text, or its default as the table above has it; a key that the table does not
/// hold has the empty text.
QVariant LireOption(const QString& cle);
