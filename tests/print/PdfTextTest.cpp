#include "print/PdfText.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <gtest/gtest.h>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDFWriter.hh>

#include "print/PaperFonts.h"
#include "tests/print/PdfReading.h"

namespace {

// What is read from a page on which the text was written.
std::wstring ReadBack(const QString& text)
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&bytes);
        writer.setResolution(kUnitsPerInch);
        QPainter painter(&writer);
        painter.setFont(PaperFonts().text.Font());
        painter.drawText(1000, 1000, text);
    }
    QPDF pdf;
    pdf.processMemoryFile("text", bytes.data().constData(), static_cast<size_t>(bytes.size()));
    CorrectTexts(pdf, MistakenCharacters(text, PaperFonts().text.Font()));
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.write();
    const auto written = writer.getBufferSharedPointer();
    return Trim(
        PdfPages({reinterpret_cast<const char*>(written->getBuffer()), written->getSize()}).at(0));
}

} // namespace

TEST(PdfText, EachCharacterIsFoundAsItWasWritten)
{
    if (!CanReadPdf()) GTEST_SKIP() << "poppler-utils is not installed";
    const QFont usual = QGuiApplication::font();
    for (const char* family : {"Noto Sans CJK SC", "DejaVu Sans"}) {
        QGuiApplication::setFont(QFont(QString::fromLatin1(family)));
        for (const wchar_t* text :
             {L"平曲线与圆曲线最小长度", L"高速公路 二级 角页见贝车门风马鸟龙", L"120 – 170",
              L"JTG D20-2017 18864BD6-435F-4597-9CFB-F7F4982F42F6",
              L"一乙二人入八力十工土大女子小山"})
            EXPECT_EQ(ReadBack(QString::fromWCharArray(text)), text) << ToUtf8(text);
    }
    QGuiApplication::setFont(usual);
}

TEST(PdfText, WhatStandsInItsOwnPlaceIsNotMistaken)
{
    EXPECT_TRUE(MistakenCharacters(QStringLiteral("abc123"), QGuiApplication::font()).empty());
}
