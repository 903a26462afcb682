#include "cli/output.h"

#include <gtest/gtest.h>

namespace {

core::CatalogRow folderRow() {
    core::CatalogRow row;
    row.numero = 7;
    row.ruta = R"(E:\a, "b")";
    row.carpeta = "a\nb";
    row.nivel = "1";
    row.fecha = 37884.5;
    row.tipo = "Carpeta de archivos";
    row.disco = "Cds :";
    return row;
}

TEST(Output, WritesARowAsJson) {
    core::CatalogRow row = folderRow();
    row.archivo = "ñ\x01\t";
    row.comentario = "bad \xff end";
    EXPECT_EQ(cli::jsonRow(row),
              R"({"numero":7,"ruta":"E:\\a, \"b\"","carpeta":"a\nb","archivo":"ñ\u0001\t","nivel":"1",)"
              R"("fecha":37884.5,"largo":null,"tipo":"Carpeta de archivos","disco":"Cds :",)"
              "\"comentario\":\"bad \uFFFD end\"}\n");
}

TEST(Output, WritesARowAsCommaSeparatedValues) {
    core::CatalogRow row = folderRow();
    EXPECT_EQ(cli::csvRow(row), "7,\"E:\\a, \"\"b\"\"\",\"a\nb\",,1,37884.5,,Carpeta de archivos,Cds :,\r\n");
    row.comentario = "";
    EXPECT_TRUE(cli::csvRow(row).ends_with(",\"\"\r\n"));  // an empty note is no absent one
}

}  // namespace
