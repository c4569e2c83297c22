// The document as a plug-in sees it: the members of QrtClass as properties and methods called by name.
#pragma once

#include "catalogue/texte/QrtClass.h"
#include "images/Bibliotheque.h"

#include <QHash>
#include <QObject>

#include <memory>

class FaceTable;

/// A waiting panel of the window.
class FacePanneau : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool Visible READ Visible WRITE SetVisible)

public:
    FacePanneau(PanneauAttente* panneau, std::weak_ptr<const void> vie, QObject* parent)
        : QObject(parent), m_panneau(panneau), m_vie(std::move(vie))
    {
    }
    bool Visible() const { return m_visible; }
    void SetVisible(bool visible);

private:
    PanneauAttente* m_panneau;
    std::weak_ptr<const void> m_vie;
    bool m_visible = false;
};

/// Deaf once the document has gone.
class FaceDocument : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString ScriptChemin READ ScriptChemin WRITE SetScriptChemin)
    Q_PROPERTY(QString FileType READ FileType WRITE SetFileType)
    Q_PROPERTY(QString filename READ filename)
    Q_PROPERTY(bool ScriptEdition READ ScriptEdition WRITE SetScriptEdition)
    Q_PROPERTY(bool IlFautSauver READ IlFautSauver WRITE SetIlFautSauver)
    Q_PROPERTY(int IndexColPrete READ IndexColPrete WRITE SetIndexColPrete)
    Q_PROPERTY(int ItemsCount READ ItemsCount)
    Q_PROPERTY(int ColCount READ ColCount)
    Q_PROPERTY(QObject* MyLV READ Table CONSTANT)
    Q_PROPERTY(QObject* wait READ Wait CONSTANT)
    Q_PROPERTY(QObject* Ouvrir READ Ouvrir CONSTANT)
    Q_PROPERTY(int dependantcol READ dependantcol WRITE Setdependantcol)
    Q_PROPERTY(QString CheminReel READ CheminReel WRITE SetCheminReel)
    Q_PROPERTY(QString ZelvaneIni READ ZelvaneIni)
    Q_PROPERTY(QString TmpFolder READ TmpFolder)
    Q_PROPERTY(QString NbSauv READ NbSauv WRITE SetNbSauv)

public:
    explicit FaceDocument(QrtClass& doc);

    QString ScriptChemin() const { return EstLa() ? m_doc.ScriptChemin : QString(); }
    void SetScriptChemin(const QString& chemin);
    QString FileType() const { return EstLa() ? m_doc.FileType : QString(); }
    /// "1", "2", "3" or empty; others are refused.
    void SetFileType(const QString& genre);
    QString filename() const { return EstLa() ? m_doc.filename() : QString(); }
    bool ScriptEdition() const { return EstLa() && m_doc.ScriptEdition; }
    void SetScriptEdition(bool edition);
    bool IlFautSauver() const { return EstLa() && m_doc.IlFautSauver; }
    void SetIlFautSauver(bool oui);
    int IndexColPrete() const { return EstLa() ? m_doc.IndexColPrete : -1; }
    /// A column, or -1; others are refused.
    void SetIndexColPrete(int index);
    int ItemsCount() const { return EstLa() ? m_doc.ItemsCount() : 0; }
    int ColCount() const { return EstLa() ? m_doc.ColCount() : 0; }
    QObject* Table() const;
    QObject* Wait() const { return m_wait; }
    QObject* Ouvrir() const { return m_ouvrir; }
    int dependantcol() const { return EstLa() ? m_doc.dependantcol : 0; }
    /// A column, or 0; others are refused.
    void Setdependantcol(int index);
    QString CheminReel() const { return EstLa() ? m_doc.CheminReel() : QString(); }
    void SetCheminReel(const QString& chemin);
    QString ZelvaneIni() const { return EstLa() ? m_doc.ZelvaneIni() : QString(); }
    QString TmpFolder() const { return EstLa() ? m_doc.TmpFolder : QString(); }
    QString NbSauv() const { return EstLa() ? m_doc.NbSauv() : QString(); }
    void SetNbSauv(const QString& nombre);

    /// Whom to ask before an image is deleted with its entry. Images stay while nobody is.
    void DemanderPourImages(const QuestionSupprImg& question) { m_question = question; }

    Q_INVOKABLE void ClearLV();
    /// Takes an image into the document's folder; see zelvane::AjouterImage in ZelvanePlugin.h.
    Q_INVOKABLE QString AjouterImage(const QString& chemin);
    /// The user has changed his mind about what a plug-in was to open.
    Q_INVOKABLE void Abandonner() { m_abandonne = true; }
    bool EstAbandonne() const { return m_abandonne; }
    Q_INVOKABLE int SelItemsCount() const { return EstLa() ? m_doc.SelItemsCount() : 0; }

private:
    FaceTable* FaireTable();
    void SupprimerImages(const QStringList& images);
    bool EstLa() const { return !m_vie.expired(); }
    bool EstColonne(int index) const { return index >= 1 && index <= ColCount(); }

    QrtClass& m_doc;
    std::weak_ptr<const void> m_vie;
    QuestionSupprImg m_question;
    FaceTable* m_table;
    FacePanneau* m_wait;
    FacePanneau* m_ouvrir;
    QHash<QString, int> m_numeros; ///< by an image's name, the first number that may be free
    bool m_abandonne = false;
};
