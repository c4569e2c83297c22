// A job that goes into a PDF file.
#pragma once

#include "platform/Imprimantes.h"

#include <QFile>
#include <QPdfWriter>

#include <memory>

class TravailEnPdf : public TravailDImpression
{
public:
    /// The pages go into a file beside the one at `chemin`, which stands as it was until the job has ended. Null when
    /// nothing can be written there.
    static std::unique_ptr<TravailEnPdf> Commencer(const QString& chemin, const QString& titre);
    ~TravailEnPdf() override;

    QPaintDevice& Papier() override { return *m_pages; }
    bool NouvellePage() override { return m_pages->newPage(); }
    bool Finir() override;

private:
    explicit TravailEnPdf(const QString& chemin);
    bool Ouvrir();

    QString m_chemin;
    QString m_provisoire; ///< where the pages go meanwhile; the path itself where nothing can stand in for it
    QFile m_fichier;
    std::unique_ptr<QPdfWriter> m_pages;
    bool m_fini = false;
};
