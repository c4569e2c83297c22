#include "extensions/plugins/FaceDocument.h"

#include "base/Const_Vrac.h"
#include "extensions/plugins/FaceTable.h"
#include "images/Bibliotheque.h"
#include "images/FichierImage.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

void FacePanneau::SetVisible(bool visible)
{
    if (m_vie.expired() || !m_panneau)
        return;
    m_visible = visible;
    m_panneau->Montrer(visible);
}

FaceDocument::FaceDocument(QrtClass& doc)
    : m_doc(doc), m_vie(doc.MyLV->Vie()), m_table(FaireTable()), m_wait(new FacePanneau(doc.wait, m_vie, this)),
      m_ouvrir(new FacePanneau(doc.Ouvrir, m_vie, this))
{
}

FaceTable* FaceDocument::FaireTable()
{
    TableVue table(*m_doc.MyLV);
    table.icone = [this](const QString& image) { return IconeImage(m_doc.TmpFolder, image); };
    table.supprimees = [this](const QStringList& images) { SupprimerImages(images); };
    return new FaceTable(table, this);
}

/// Of entries that the user deletes.
void FaceDocument::SupprimerImages(const QStringList& images)
{
    m_doc.IlFautSauver = true;
    int mode = 0; // one answer may stand for all of them
    for (const QString& image : images) {
        const QString fichier = EstLa() && m_question ? FichierImage(m_doc.TmpFolder, image) : QString();
        if (!fichier.isEmpty())
            SupprimerImage(fichier, mode, m_question);
    }
}

QObject* FaceDocument::Table() const
{
    return m_table;
}

void FaceDocument::SetScriptChemin(const QString& chemin)
{
    if (EstLa())
        m_doc.ScriptChemin = chemin;
}

void FaceDocument::SetFileType(const QString& genre)
{
    if (EstLa() && (genre.isEmpty() || genre == "1"_L1 || genre == "2"_L1 || genre == "3"_L1))
        m_doc.FileType = genre;
}

void FaceDocument::SetScriptEdition(bool edition)
{
    if (EstLa())
        m_doc.ScriptEdition = edition;
}

void FaceDocument::SetIlFautSauver(bool oui)
{
    if (EstLa())
        m_doc.IlFautSauver = oui;
}

void FaceDocument::SetIndexColPrete(int index)
{
    if (EstLa() && (index == -1 || EstColonne(index)))
        m_doc.IndexColPrete = index;
}

void FaceDocument::Setdependantcol(int index)
{
    if (EstLa() && (index == 0 || EstColonne(index)))
        m_doc.dependantcol = index;
}

void FaceDocument::SetCheminReel(const QString& chemin)
{
    if (EstLa())
        m_doc.SetCheminReel(chemin);
}

void FaceDocument::SetNbSauv(const QString& nombre)
{
    if (EstLa())
        m_doc.SetNbSauv(nombre);
}

void FaceDocument::ClearLV()
{
    if (!EstLa())
        return;
    static_cast<FaceListItems*>(m_table->ListItems())->Clear();
    m_doc.ClearLV();
}

QString FaceDocument::AjouterImage(const QString& chemin)
{
    const QString nom = NomTenable(chemin);
    // The library lists no PNG, but shows it.
    if (!EstLa() || chemin.contains(u'\0') || (!EstNomDImage(nom) && ExtensionDe(nom) != "png"_L1))
        return {};
    QString libre = nom;
    if (QFileInfo::exists(m_doc.TmpFolder + nom)) {
        // Thousands of folders may hold a "cover.jpg" each: none of their numbers is tried twice.
        int& numero = m_numeros[nom];
        libre = NomLibre(m_doc.TmpFolder, nom, {}, numero);
        numero = libre.chopped(nom.size()).toInt();
    }
    return CopierImage(chemin, m_doc.TmpFolder + libre, SiLeFichierExiste::Echouer) ? libre : QString();
}
