#include "entries/CreerCategorie.h"

#include "catalogue/documents/FenetreDocument.h"
#include "catalogue/documents/NouveauDocument.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "extensions/langue/modLang.h"

using namespace Qt::StringLiterals;

namespace {

constexpr float LargeurColonne = 1200; // units of 1/1440 inch

void AjouterColonnes(QrtClass& doc, const QStringList& titres)
{
    for (const QString& titre : titres) {
        if (titre.isEmpty())
            continue;
        ColumnHeader& colonne = doc.MyLV->ColumnHeaders.Add(0, titre);
        colonne.SetWidth(LargeurColonne);
        // The last column of that title is the loan column, as when a file is read.
        if (titre == TitrePrete())
            doc.IndexColPrete = colonne.Index();
    }
}

} // namespace

FenetreDocument* CreerCategorie(Cadre& cadre, const QStringList& titres, int dependante)
{
    return NouveauDocument(cadre, LangMsg(u"msg79"_s, u"Nouveau"_s), [&](FenetreDocument& fenetre) {
        QrtClass& doc = fenetre.myqrt;
        doc.dependantcol = dependante;
        fenetre.RedrawAll();
        doc.ClearLV();
        // Behind the user's columns, so that it moves none of them and is no choice for the dependant one.
        AjouterColonnes(doc, titres + QStringList{TitrePrete()});
        fenetre.RedrawAll();
        doc.SetCheminReel(QString());
        doc.MyLV->SetGridLines(true);
        doc.IlFautSauver = true;
        doc.Ouvrir->Montrer(false);
        return true;
    });
}
