// A printer that keeps what it is given, and the steps of a user who prints.
#pragma once

#include "platform/Imprimantes.h"
#include "support/PlateformeDeTest.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>

#include <memory>

/// Jobs go into memory, as PDF.
class ImprimanteEnMemoire
{
public:
    ImprimanteEnMemoire()
    {
        ImprimantesPreparees& imprimantes = PlateformeDeTest::Courante().imprimantes;
        imprimantes.noms = {QStringLiteral("Bureau"), QStringLiteral("Salon")};
        imprimantes.parDefaut = QStringLiteral("Salon");
        imprimantes.commencer = [this](const QString& imprimante, const QString& titre) {
            demandees.append(imprimante + u'/' + titre);
            return std::make_unique<Travail>(*this);
        };
    }

    QStringList demandees;     ///< printer and title of each job that was begun
    int finis = 0;             ///< jobs that were sent
    int pagesDernier = 0;      ///< pages of the last job
    bool refuse = false;       ///< jobs come to nothing at their end
    bool sansPapier = false;   ///< there is no second page
    bool sansAppareil = false; ///< nothing can be drawn at all
    QByteArray octets;         ///< of the last job

private:
    class Travail : public TravailDImpression
    {
    public:
        explicit Travail(ImprimanteEnMemoire& imprimante) : m_imprimante(imprimante)
        {
            m_tampon.open(QIODevice::WriteOnly);
            m_pages = std::make_unique<QPdfWriter>(&m_tampon);
            m_pages->setResolution(UnitesParPouce);
            m_pages->setPageSize(QPageSize(QPageSize::A4));
            m_pages->setPageMargins({});
            m_imprimante.pagesDernier = 1;
        }
        QPaintDevice& Papier() override
        {
            return m_imprimante.sansAppareil ? static_cast<QPaintDevice&>(m_rien) : *m_pages;
        }
        bool NouvellePage() override
        {
            ++m_imprimante.pagesDernier;
            return !m_imprimante.sansPapier && m_pages->newPage();
        }
        bool Finir() override
        {
            m_pages.reset();
            m_imprimante.octets = m_tampon.data();
            m_imprimante.finis += m_imprimante.refuse ? 0 : 1;
            return !m_imprimante.refuse;
        }

    private:
        ImprimanteEnMemoire& m_imprimante;
        QBuffer m_tampon;
        QImage m_rien;
        std::unique_ptr<QPdfWriter> m_pages;
    };
};
