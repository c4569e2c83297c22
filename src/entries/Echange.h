// The text in which entries travel from one category to another, on the clipboard and under the pointer: a line with a
// tag, a line with the titles of the columns and the folder of the images, and a line an entry with its values and the
// name of its image. Tabs part fields, CR LF ends every line, the last one too; nothing is escaped.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>

class Avancement;
class MyLV;

/// Hands over, piece by piece and in UTF-8, the text of the entries that are selected, in table order.
void EcrireEchange(const MyLV& table, const QString& dossier, Avancement& avancement,
                   const std::function<void(QByteArrayView)>& recevoir);
/// The same text as a whole.
QString TexteDEchange(const MyLV& table, const QString& dossier);

/// Such a text as it is read. It may be any text: another program's, or one that was cut off.
class EchangeLu
{
public:
    explicit EchangeLu(QString texte);

    /// Whether the first line is the tag of entries, and a second one has anything in it.
    bool EstEchange() const;
    /// The fields of the second line: the titles, and the folder at the end. None where there is no such line, or it
    /// has more fields than any category has columns.
    QStringList Champs() const;
    QStringList Titres() const;
    QString Dossier() const;

    /// How many lines of entries there are. What stands behind the last line end is none.
    qsizetype Entrees() const;
    /// Calls `faire` with each of those lines, without its end, until that is false. False when it was.
    bool Parcourir(const std::function<bool(QStringView ligne)>& faire) const;

private:
    QString m_texte;
    QStringView m_tag;
    QStringView m_titres;
    QStringView m_lignes; // what stands behind the second line
};
