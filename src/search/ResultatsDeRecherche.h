// The results of a search, as a list shows them, and what ties them to the entries of the document's table: the key.
// A key that names no entry there, as of a line that was saved beyond the count of entries, is passed over.
#pragma once

#include "base/Message.h"
#include "catalogue/table/MyLV.h"
#include "search/Recherche.h"

#include <QHash>
#include <QString>

class QrtClass;

class ResultatsDeRecherche
{
public:
    /// The columns of the document's table, with their widths, and no results.
    explicit ResultatsDeRecherche(const QrtClass& doc);

    MyLV Table;

    void Vider();
    /// In the place of those there are.
    void Prendre(Recherche& recherche);

    /// Field 0, " <> " and field 1 of the line that was found, also after the result was refreshed.
    QString Infobulle(const ListItemLu& resultat) const;

    /// Selects those entries of the document's table whose results are selected here, and gives the first of them the
    /// focus: the editor of one entry opens on that.
    void ChoisirDans(MyLV& table) const;
    /// Takes the values of the entries of the selected results. Images, markers and tool tips stay: it is meant.
    void Rafraichir(const MyLV& table);

private:
    QString InfobulleDe(const ListItemLu& resultat) const;

    QHash<QString, QString> m_infobulles; ///< of refreshed results, by key
};

/// What the user is told when nothing was found: "msg13", "msg14", "msgRechercheAbsente", "msgRechercheIllisible". No
/// text when something was.
Message MessageDeRecherche(IssueDeRecherche issue);
/// How often the text was found ("msg91").
QString TexteDuCompte(const QString& texte, int nombre);
