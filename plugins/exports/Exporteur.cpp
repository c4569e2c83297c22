#include "Exporteur.h"

#include "ProgressionEnFenetre.h"

#include <ZelvanePlugin.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

QString Raison(Fin fin)
{
    switch (fin) {
    case Fin::TableChangee:
        return zelvane::LangMsg(u"plugExportsChangee"_s,
                                u"la catégorie a été fermée ou modifiée pendant l'exportation."_s);
    case Fin::TropDeColonnes:
        return zelvane::LangMsg(u"plugExportsColonnes"_s, u"la catégorie a plus de colonnes qu'un classeur."_s);
    case Fin::DisquePlein:
        return zelvane::LangMsg(u"plugExportsDisque"_s, u"il n'y a plus de place sur le disque."_s);
    case Fin::Interdit:
        return zelvane::LangMsg(u"plugExportsInterdit"_s, u"vous n'avez pas le droit d'écrire à cet endroit."_s);
    case Fin::DossierAbsent:
        return zelvane::LangMsg(u"plugExportsDossier"_s, u"le dossier n'existe pas."_s);
    default:
        return zelvane::LangMsg(u"plugExportsRefus"_s, u"le fichier ne peut pas être écrit."_s);
    }
}

} // namespace

void Exporteur::WhatIsIt(QString& genres) const
{
    genres = u"export"_s;
}

void Exporteur::initme(QObject* document, int fenetre)
{
    m_document = document;
    Q_UNUSED(fenetre)
}

void Exporteur::ExportToFile(const QString& chemin)
{
    ProgressionEnFenetre progression;
    const Fin fin = Ecrire(chemin, progression);
    if (fin == Fin::Faite || fin == Fin::Abandonnee)
        return;
    const QString intact =
        zelvane::LangMsg(u"plugExportsIntact"_s, u"Un fichier qui était déjà là reste tel qu'il était."_s);
    throw std::runtime_error((Raison(fin) + u' ' + intact).toStdString());
}

QString FiltreDExport(QString etiquette, const QString& motif)
{
    // The bar parts label and pattern.
    return etiquette.remove(u'|') + u'|' + motif;
}
