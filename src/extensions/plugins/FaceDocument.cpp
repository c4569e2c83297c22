#include "extensions/plugins/FaceDocument.h"

#include "extensions/plugins/FaceTable.h"
#include "images/FichierImage.h"

using namespace Qt::StringLiterals;

namespace {

FaceTable* FaceDe(QrtClass& doc, QObject* parent)
{
    TableVue table(*doc.MyLV);
    table.icone = [&doc](const QString& image) { return IconeImage(doc.TmpFolder, image); };
    return new FaceTable(table, parent);
}

} // namespace

void FacePanneau::SetVisible(bool visible)
{
    if (m_vie.expired() || !m_panneau)
        return;
    m_visible = visible;
    m_panneau->Montrer(visible);
}

FaceDocument::FaceDocument(QrtClass& doc)
    : m_doc(doc), m_vie(doc.MyLV->Vie()), m_table(FaceDe(doc, this)), m_wait(new FacePanneau(doc.wait, m_vie, this)),
      m_ouvrir(new FacePanneau(doc.Ouvrir, m_vie, this))
{
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
