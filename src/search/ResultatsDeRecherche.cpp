#include "search/ResultatsDeRecherche.h"

#include "catalogue/texte/QrtClass.h"
#include "extensions/langue/modLang.h"

#include <utility>

using namespace Qt::StringLiterals;

ResultatsDeRecherche::ResultatsDeRecherche(const QrtClass& doc)
{
    const ColumnHeaders& colonnes = doc.MyLV->ColumnHeaders;
    for (int i = 1; i <= colonnes.Count(); ++i)
        Table.ColumnHeaders.Add(0, colonnes(i).Text()).SetWidth(colonnes(i).Width());
}

void ResultatsDeRecherche::Vider()
{
    Table.ListItems.Clear();
    m_infobulles.clear();
}

void ResultatsDeRecherche::Prendre(Recherche& recherche)
{
    Vider();
    Recherche::Trouvees trouvees = recherche.Prendre();
    Table.Remplir(std::move(trouvees.source), std::move(trouvees.lignes));
}

QString ResultatsDeRecherche::Infobulle(const ListItemLu& resultat) const
{
    const auto gardee = m_infobulles.constFind(resultat.Key());
    return gardee == m_infobulles.cend() ? InfobulleDe(resultat) : *gardee;
}

QString ResultatsDeRecherche::InfobulleDe(const ListItemLu& resultat) const
{
    // Behind the only column stands the image's name: it is field 1 then.
    const bool seule = Table.ColumnHeaders.Count() < 2;
    return resultat.Text() + u" <> "_s + (seule ? resultat.Tag() : resultat.SubItems(1));
}

void ResultatsDeRecherche::ChoisirDans(MyLV& table) const
{
    table.Selectionner(1, table.ListItems.Count(), false);
    bool premiere = true;
    for (int i = 1; i <= Table.ListItems.Count(); ++i) {
        if (!Table.EstSelectionnee(i))
            continue;
        ListItem entree = table.ListItems(Table.ListItems(i).Key());
        if (!entree)
            continue;
        entree.SetSelected(true);
        if (std::exchange(premiere, false))
            table.SetSelectedItem(entree);
    }
}

void ResultatsDeRecherche::Rafraichir(const MyLV& table)
{
    for (int i = 1; i <= Table.ListItems.Count(); ++i) {
        ListItem resultat = Table.ListItems(i);
        if (!resultat.Selected())
            continue;
        const ListItemLu entree = table.ListItems(resultat.Key());
        const QStringList valeurs = entree ? entree.Valeurs() : resultat.Valeurs();
        if (valeurs == resultat.Valeurs())
            continue;
        if (!m_infobulles.contains(resultat.Key()))
            m_infobulles.insert(resultat.Key(), InfobulleDe(resultat));
        resultat.EcrireValeurs(valeurs);
    }
}

Message MessageDeRecherche(IssueDeRecherche issue)
{
    switch (issue) {
    case IssueDeRecherche::SansTexte:
        return LangMsg(u"msg13"_s, u"Veuillez entrer un texte à rechercher"_s);
    case IssueDeRecherche::Rien:
        return LangMsg(u"msg14"_s, u"Désolé rien n'a été trouvé"_s);
    case IssueDeRecherche::Absent:
        return LangMsg(u"msgRechercheAbsente"_s,
                       u"Le texte enregistré de la catégorie n'est plus dans son dossier temporaire. Enregistrez-la, "
                       u"puis recommencez la recherche."_s);
    case IssueDeRecherche::Illisible:
        return LangMsg(u"msgRechercheIllisible"_s,
                       u"Le texte enregistré de la catégorie ne peut pas être lu : rien n'a pu être cherché. "
                       u"Enregistrez-la, puis recommencez la recherche."_s);
    case IssueDeRecherche::Trouve:
        break;
    }
    return {};
}

QString TexteDuCompte(const QString& texte, int nombre)
{
    // The number first: the text that was looked for may hold a "%2" of its own.
    return LangMsg(u"msg91"_s, u"'%1' à été trouvé %2 fois"_s)
        .Remplacer(u"%2"_s, QString::number(nombre))
        .Remplacer(u"%1"_s, texte);
}
