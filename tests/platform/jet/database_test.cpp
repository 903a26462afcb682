#include <gtest/gtest.h>

#include <filesystem>

#include "platform/jet/database.h"
#include "platform/jet/maintenance.h"

TEST(Smoke, Works) {
    const auto dir = std::filesystem::temp_directory_path() / "zq_smoke";
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir);
    const std::string path = dir / "a.zrq";
    ASSERT_TRUE(jet::CreateDatabase(path));
    auto db = jet::OpenDatabase(path);
    ASSERT_TRUE(db) << db.error().text;
    auto n = db->Execute("insert into datos (numero,ruta,carpeta,nivel,fecha,tipo,disco) values (1,'C:\\Ñandú','Ñandú','1','38000,5','Carpeta de archivos','Uno :')");
    ASSERT_TRUE(n) << n.error().text;
    ASSERT_TRUE(db->Execute("insert into datos (numero,ruta,carpeta,nivel,fecha,tipo,disco) values (2,'C:\\nz','nz','1','38000.5','Carpeta de archivos','uno :')"));
    auto rs = db->OpenRecordset("select * from datos where carpeta  Like ('*ÑAN*') and tipo <>('archivo') order by carpeta");
    ASSERT_TRUE(rs) << rs.error().text;
    EXPECT_EQ(rs->RecordCount(), 1);
    EXPECT_EQ(rs->Field("carpeta").text(), "Ñandú");
    EXPECT_EQ(rs->Field("fecha").number(), 38000.5);
    EXPECT_TRUE(rs->Field("archivo").isNull());
    rs = db->OpenRecordset("select * from datos where disco=('UNO :') order by carpeta");
    ASSERT_TRUE(rs) << rs.error().text;
    EXPECT_EQ(rs->RecordCount(), 2);
    EXPECT_EQ(rs->Field("carpeta").text(), "nz");
    rs = db->OpenRecordset("select disco from datos group by disco order by disco");
    ASSERT_TRUE(rs) << rs.error().text;
    EXPECT_EQ(rs->RecordCount(), 2);
    EXPECT_EQ(db->Execute("update datos set comentario='it's' where disco='Uno :'").error().number, 3075);
    EXPECT_EQ(db->OpenRecordset("select x from datos").error().number, 3061);
    EXPECT_EQ(db->OpenRecordset("select * from dato").error().number, 3078);
    EXPECT_EQ(*db->Execute("delete * from datos where disco like('uno :')"), 2);
}
