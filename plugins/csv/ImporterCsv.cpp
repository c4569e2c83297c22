// The plug-in that opens tables of text, with whatever separates their columns.
#include "frmBilanCsv.h"
#include "frmImporterCsv.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;
using zelvane::LangMsg;

class ImporterCsv : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString OpenFilter READ OpenFilter)

public:
    static QString OpenFilter()
    {
        return LangMsg(u"plugCsvFiltre"_s, u"Tableaux CSV et TSV"_s) + u" (*.csv;*.tsv;*.txt)|*.csv;*.tsv;*.txt"_s;
    }

    Q_INVOKABLE void WhatIsIt(QString& genres) { genres = u"open"_s; }

    Q_INVOKABLE void initme(QObject* document, int fenetre)
    {
        m_document = document;
        QWidget* sienne = QWidget::find(static_cast<WId>(fenetre));
        m_fenetre = sienne ? sienne->window() : QApplication::activeWindow();
    }

    Q_INVOKABLE void openFile(const QString& chemin)
    {
        QFile fichier(chemin);
        // A pipe would keep whoever opens it waiting.
        if (!QFileInfo(chemin).isFile() || !fichier.open(QIODevice::ReadOnly)) {
            zelvane::Abandonner(m_document);
            throw std::runtime_error(LangMsg(u"plugCsvIllisible"_s, u"le fichier ne peut pas être lu"_s).toStdString());
        }
        if (!Importer(fichier))
            zelvane::Abandonner(m_document);
    }

private:
    /// False when the user gave it up.
    bool Importer(QFile& fichier)
    {
        const QFileInfo lieu(fichier);
        frmImporterCsv dialogue(fichier, lieu.absoluteFilePath(), m_fenetre);
        if (dialogue.exec() != QDialog::Accepted)
            return false;
        ImportCsv import(fichier, dialogue.Plan(), lieu.absolutePath() + u'/', m_document);
        if (!Travailler(import, fichier))
            return false;
        if (import.EstRefuse())
            throw std::runtime_error(LangMsg(u"plugCsvRefuse"_s, u"la catégorie n'a pas tout pris"_s).toStdString());
        return Accepter(import);
    }

    /// False when the user gave it up.
    bool Travailler(ImportCsv& import, const QFile& fichier)
    {
        constexpr qint64 unMoment = 400; // ms
        QElapsedTimer depuis;
        depuis.start();
        std::unique_ptr<frmAvancementCsv> avancement;
        while (import.Avancer()) {
            if (depuis.elapsed() < unMoment)
                continue;
            if (!avancement)
                avancement = std::make_unique<frmAvancementCsv>(m_fenetre);
            avancement->Montrer(static_cast<int>(1000 * fichier.pos() / std::max(fichier.size(), qint64{1})));
            if (avancement->EstAbandonne())
                return false;
        }
        return true;
    }

    /// False when the user does not want what came of it.
    bool Accepter(ImportCsv& import)
    {
        if (import.Bilan().EstSansReserve())
            return true;
        const zelvane::Table table(m_document);
        frmBilanCsv bilan(import.Bilan(), table, m_fenetre);
        if (bilan.exec() != QDialog::Accepted)
            return false;
        if (bilan.SansDefectueuses())
            import.RetirerDefectueuses();
        return true;
    }

    QObject* m_document = nullptr;
    QWidget* m_fenetre = nullptr;
};

ZELVANE_PLUGIN("ImporterCsv", ImporterCsv)

#include "ImporterCsv.moc"
