-- The database of the forest administration: every table that the library and the demonstration host use.
-- Microsoft SQL Server's dialect; batches end with a line GO. The embedded database loads the same file.
--
-- Keys: a column is IDENTITY exactly where statements insert rows without naming the key. All other keys are plain
-- int, because whoever inserts counts MAX + 1 and writes the number itself.
-- Columns beside the key may be NULL nearly everywhere: a new row is inserted with its key (and its list) only and then
-- filled column by column.
-- Foreign keys stand only where no usage check looks before a row is deleted, so that the database refuses to orphan
-- rows. Where a check looks, references stay free: old lists may name offices and customers that are long gone.

-- ---------------------------------------------------------------------------------------------------------------------
-- Installation, access levels, users
-- ---------------------------------------------------------------------------------------------------------------------

-- One row of installation data, shown in the About box.
CREATE TABLE KORVEX (
    ID int NOT NULL,
    USER_NAME nvarchar(50) NULL,
    COMP_NAME nvarchar(100) NULL,
    CONSTRAINT PK_KORVEX PRIMARY KEY (ID)
)
GO

-- Settings, one a row.
CREATE TABLE OPTIONEN (
    PROPERTY_ID nvarchar(50) NOT NULL,
    NUMBER_VALUE int NULL,
    TEXT_VALUE nvarchar(255) NULL,
    CONSTRAINT PK_OPTIONEN PRIMARY KEY (PROPERTY_ID)
)
GO

-- Structures of the outside stand application, to which access levels are linked.
CREATE TABLE BB_STRUKTUREN (
    ID int NOT NULL,
    DSW_STRUKTUR nvarchar(20) NULL,
    CONSTRAINT PK_BB_STRUKTUREN PRIMARY KEY (ID)
)
GO

-- Access levels form a hierarchy by code: a level whose code ends in 00 stands above those that share its beginning.
CREATE TABLE ACCESS_LEVELS (
    ID int NOT NULL,
    NAME nvarchar(50) NULL,
    ACCESS_LEVELS nvarchar(10) NULL,
    ADR_DSW nvarchar(50) NULL,
    ID_BB_STRUKTUREN int NULL,
    CONSTRAINT PK_ACCESS_LEVELS PRIMARY KEY (ID),
    CONSTRAINT FK_ACCESS_LEVELS_STRUKTUR FOREIGN KEY (ID_BB_STRUKTUREN) REFERENCES BB_STRUKTUREN (ID)
)
GO

CREATE TABLE USERS (
    ID_USER int NOT NULL,
    NAME nvarchar(30) NOT NULL,
    LONGNAME nvarchar(100) NULL,
    ID_ACCESS_LEVELS int NULL,
    CONSTRAINT PK_USERS PRIMARY KEY (ID_USER),
    CONSTRAINT UQ_USERS_NAME UNIQUE (NAME),
    CONSTRAINT FK_USERS_LEVEL FOREIGN KEY (ID_ACCESS_LEVELS) REFERENCES ACCESS_LEVELS (ID)
)
GO

-- Rights a user holds, by code: B018 lock models, B049 change models, B057 publish models to a level.
CREATE TABLE RIGHTS (
    ID_USER int NOT NULL,
    CODE nvarchar(10) NOT NULL,
    CONSTRAINT PK_RIGHTS PRIMARY KEY (ID_USER, CODE),
    CONSTRAINT FK_RIGHTS_USER FOREIGN KEY (ID_USER) REFERENCES USERS (ID_USER)
)
GO

-- Column layouts a user has arranged: NAME the layout, CONTROL the grid or list view, COLUMN_TEXT its columns.
CREATE TABLE LAYOUTS (
    ID_USER int NOT NULL,
    NAME nvarchar(60) NOT NULL,
    CONTROL nvarchar(60) NOT NULL,
    COLUMN_TEXT nvarchar(max) NULL,
    CONSTRAINT PK_LAYOUTS PRIMARY KEY (ID_USER, NAME, CONTROL)
)
GO

-- Texts of the catalogue that a customer may word anew (CUSTOM_...), in groups, and the free lists kept among them.
CREATE TABLE STRINGS (
    ID_STRING int NOT NULL,
    LABEL_GROUP nvarchar(10) NULL,
    DEUTSCH nvarchar(255) NULL,
    ENGLISH nvarchar(255) NULL,
    CUSTOM_DEUTSCH nvarchar(255) NULL,
    CUSTOM_ENGLISH nvarchar(255) NULL,
    CONSTRAINT PK_STRINGS PRIMARY KEY (ID_STRING)
)
GO
CREATE INDEX IX_STRINGS_GROUP ON STRINGS (LABEL_GROUP)
GO

-- ---------------------------------------------------------------------------------------------------------------------
-- Stands
-- ---------------------------------------------------------------------------------------------------------------------

-- A stand or an intermediate level; a level not in use is NULL. The key columns hold more than the 25 characters that
-- the dialogs let a user type, since rows also come from other systems.
CREATE TABLE WALDORT (
    ID_WALDORT int IDENTITY(1,1) NOT NULL,
    WO1 nvarchar(50) NULL,
    WO2 nvarchar(50) NULL,
    WO3 nvarchar(50) NULL,
    WO4 nvarchar(50) NULL,
    WO5 nvarchar(50) NULL,
    WO6 nvarchar(50) NULL,
    ID_ACCESS_LEVELS int NULL,
    DISABLE smallint NULL,
    ZENTRALE smallint NULL,
    LANGNAME nvarchar(200) NULL,
    FLAECHE numeric(12,4) NULL,
    HAUPT_HA nvarchar(5) NULL,
    AL_TER numeric(8,2) NULL,
    GEMARKUNG nvarchar(30) NULL,
    FLURSTUECK nvarchar(30) NULL,
    PARZELLE nvarchar(30) NULL,
    INFO1 nvarchar(100) NULL,
    INFO2 nvarchar(100) NULL,
    INFO3 nvarchar(100) NULL,
    INFO4 nvarchar(100) NULL,
    INFO5 nvarchar(100) NULL,
    ZAHL1 numeric(12,2) NULL,
    ZAHL2 numeric(12,2) NULL,
    ZAHL3 numeric(12,2) NULL,
    ZAHL4 numeric(12,2) NULL,
    ZAHL5 numeric(12,2) NULL,
    CONSTRAINT PK_WALDORT PRIMARY KEY (ID_WALDORT)
)
GO
-- Serves the tree's ORDER BY without a sort, the key look-ups, and the tree's whole statement without the table.
CREATE INDEX IX_WALDORT_KEY ON WALDORT (WO1, WO2, WO3, WO4, WO5, WO6, DISABLE, ID_ACCESS_LEVELS, ZENTRALE)
GO

-- Values allowed for a key level; a level without rows here is free.
CREATE TABLE T_WALDORT (
    ID int NOT NULL,
    WONR smallint NOT NULL,
    SHORT nvarchar(25) NOT NULL,
    LONG nvarchar(50) NULL,
    CONSTRAINT PK_T_WALDORT PRIMARY KEY (ID)
)
GO

-- New stands come from here only: an empty row, whose key is the one field of the result.
CREATE PROCEDURE kvx_WALDORT_INS AS
SET NOCOUNT ON
INSERT INTO WALDORT DEFAULT VALUES
SELECT CAST(SCOPE_IDENTITY() AS int) AS ID_WALDORT
GO

-- ---------------------------------------------------------------------------------------------------------------------
-- Code lists
-- ---------------------------------------------------------------------------------------------------------------------

-- Short code lists in one table, told apart by LABEL_GROUP: units, felling, skidding, customer groups ...
CREATE TABLE STAMM_TABELLEN (
    ID_STRING int NOT NULL,
    LABEL_GROUP nvarchar(10) NULL,
    SHORTNAME nvarchar(8) NULL,
    LONGNAME nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_STAMM_TABELLEN PRIMARY KEY (ID_STRING)
)
GO
CREATE INDEX IX_STAMM_TABELLEN_GROUP ON STAMM_TABELLEN (LABEL_GROUP, SHORTNAME)
GO

-- Groups of the code tables, and groups of groups (LABEL_GROUP 'BEREICH_...'), to which BEZEICH leads.
CREATE TABLE BBF_GRUPPE (
    ID int NOT NULL,
    LABEL_GROUP nvarchar(30) NULL,
    NUMBER int NULL,
    NAME nvarchar(50) NULL,
    BEZEICH int NULL,
    CONSTRAINT PK_BBF_GRUPPE PRIMARY KEY (ID)
)
GO

-- Forest offices and their kin; RELTABLE_ID is the relation level, 1 to 10.
CREATE TABLE RELTABLE (
    ID int NOT NULL,
    RELTABLE_ID int NULL,
    KURZNAME nvarchar(8) NULL,
    LANGNAME nvarchar(50) NULL,
    GRUPPE int NULL,
    DISABLE bit NULL,
    ID_ACCESS_LEVELS int NULL,
    CONSTRAINT PK_RELTABLE PRIMARY KEY (ID)
)
GO

-- Colours of the marks on logs; the code itself is the key.
CREATE TABLE FARBE (
    FARBE nvarchar(5) NOT NULL,
    FARBE_LANG nvarchar(30) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_FARBE PRIMARY KEY (FARBE)
)
GO

CREATE TABLE F1 (
    ID int NOT NULL,
    SHORT nvarchar(5) NULL,
    LONG nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_F1 PRIMARY KEY (ID)
)
GO

CREATE TABLE F2 (
    ID int NOT NULL,
    SHORT nvarchar(5) NULL,
    LONG nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_F2 PRIMARY KEY (ID)
)
GO

-- The one code list whose key fills itself although the editor counts MAX + 1 too: both must agree, so the counter goes
-- back when the highest row is deleted.
CREATE TABLE SONDERMERKMAL (
    ID int IDENTITY(1,1) NOT NULL,
    NUMMER nvarchar(4) NULL,
    NAME nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_SONDERMERKMAL PRIMARY KEY (ID)
)
GO

CREATE TRIGGER SONDERMERKMAL_KEYS ON SONDERMERKMAL AFTER DELETE AS
DECLARE @highest int
SELECT @highest = ISNULL(MAX(ID), 0) FROM SONDERMERKMAL
DBCC CHECKIDENT ('SONDERMERKMAL', RESEED, @highest) WITH NO_INFOMSGS
GO

CREATE TABLE ANLASSART (
    ID int NOT NULL,
    NAME nvarchar(30) NULL,
    TYPE_OF_RECH nvarchar(10) NULL,
    CONSTRAINT PK_ANLASSART PRIMARY KEY (ID)
)
GO

CREATE TABLE T_BUNDESLAND (
    ID int IDENTITY(1,1) NOT NULL,
    SHORT nvarchar(2) NULL,
    LONG nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_T_BUNDESLAND PRIMARY KEY (ID)
)
GO

-- Districts; the first three characters of a person's number name one.
CREATE TABLE T_BEZIRK (
    ID int NOT NULL,
    NUMMER nvarchar(3) NULL,
    LONG nvarchar(50) NULL,
    CONSTRAINT PK_T_BEZIRK PRIMARY KEY (ID)
)
GO

-- ---------------------------------------------------------------------------------------------------------------------
-- Timber: species, grades, classes, units, assortments
-- ---------------------------------------------------------------------------------------------------------------------

CREATE TABLE HOLZART (
    ID int NOT NULL,
    HA nvarchar(5) NULL,
    HA_LANG nvarchar(50) NULL,
    HAGR1 nvarchar(10) NULL,
    HAGR2 nvarchar(10) NULL,
    HAGR3 nvarchar(10) NULL,
    HAGR4 nvarchar(10) NULL,
    HAGR5 nvarchar(10) NULL,
    ZUORD_MSZ numeric(3,0) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_HOLZART PRIMARY KEY (ID)
)
GO

CREATE TABLE GUETEKLASSE (
    ID int NOT NULL,
    GKL nvarchar(5) NULL,
    GKL_LANG nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_GUETEKLASSE PRIMARY KEY (ID)
)
GO

-- Diameter classes. KURZ is the class as the timber lists write it, STKL as assortments and tariffs name it.
CREATE TABLE STKL (
    ID int NOT NULL,
    KURZ nvarchar(5) NULL,
    STKL nvarchar(5) NULL,
    DM_VON numeric(5,1) NULL,
    DM_BIS numeric(5,1) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_STKL PRIMARY KEY (ID)
)
GO

CREATE TABLE KUBATURKLASSE (
    ID int NOT NULL,
    KKLASSE int NULL,
    TEXT nvarchar(50) NULL,
    CONSTRAINT PK_KUBATURKLASSE PRIMARY KEY (ID)
)
GO

-- Bark codes; RINDEPROZENT 0: deduction in cm, 1: in percent, NULL: none.
CREATE TABLE RINDENKENNZ (
    ID_RINDENKENNZ int NOT NULL,
    RINDENKENNZ nvarchar(5) NULL,
    RINDENKZ_LANG nvarchar(50) NULL,
    CALCULATION smallint NULL,
    RINDEPROZENT smallint NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_RINDENKENNZ PRIMARY KEY (ID_RINDENKENNZ)
)
GO

CREATE TABLE RINDENABZUG (
    ID int NOT NULL,
    RINDENTABELLE nvarchar(5) NULL,
    RINDEPROZENT smallint NULL,
    HA nvarchar(5) NULL,
    DM_VON numeric(5,1) NULL,
    DM_BIS numeric(5,1) NULL,
    ABZUG numeric(6,2) NULL,
    GUELTIG_BIS smalldatetime NULL,
    CONSTRAINT PK_RINDENABZUG PRIMARY KEY (ID)
)
GO

-- Assortments. HOLZART, GKL, STKL, MENGENEINHEIT and RINDENKENNZ are comma lists of keys; NULL means all. The limits
-- of a derived assortment are float and not numeric: an empty cell must stay empty there, and not become 0.
CREATE TABLE HOLZSORTE (
    ID int NOT NULL,
    HS nvarchar(10) NULL,
    HS_LANG nvarchar(50) NULL,
    HSGR1 nvarchar(10) NULL,
    HSGR2 nvarchar(10) NULL,
    HSGR3 nvarchar(10) NULL,
    HSGR4 nvarchar(10) NULL,
    HSGR5 nvarchar(10) NULL,
    RUND bit NULL,
    SCHICHT bit NULL,
    WERK bit NULL,
    STANG bit NULL,
    GEWICHT bit NULL,
    MANTEL bit NULL,
    NH bit NULL,
    NOT_CALC_STKL bit NULL,
    ZUORD_MSZ numeric(3,0) NULL,
    STKL_GRUP nvarchar(10) NULL,
    RM_UFA numeric(8,4) NULL,
    ATO_UFA numeric(8,4) NULL,
    LUT_UFA numeric(8,4) NULL,
    STK100_UFA numeric(8,4) NULL,
    FAKTOR_HEIZWERT numeric(8,4) NULL,
    FAKTOR_WASSER_REDUKTION numeric(8,4) NULL,
    UFAKT_MENGE_MWH numeric(8,4) NULL,
    SHOW_ORDER int NULL,
    ID_MENGEN int NULL,
    ID_MEFVERF int NULL,
    BASIS nvarchar(10) NULL,
    L_VON float NULL,
    L_BIS float NULL,
    DM_VON float NULL,
    DM_BIS float NULL,
    HOLZART nvarchar(500) NULL,
    GKL nvarchar(500) NULL,
    STKL nvarchar(500) NULL,
    MENGENEINHEIT nvarchar(500) NULL,
    RINDENKENNZ nvarchar(500) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_HOLZSORTE PRIMARY KEY (ID),
    CONSTRAINT FK_HOLZSORTE_MENGEN FOREIGN KEY (ID_MENGEN) REFERENCES STAMM_TABELLEN (ID_STRING),
    CONSTRAINT FK_HOLZSORTE_MEFVERF FOREIGN KEY (ID_MEFVERF) REFERENCES STAMM_TABELLEN (ID_STRING)
)
GO

CREATE TABLE DSART (
    ID int NOT NULL,
    NAME nvarchar(20) NULL,
    CONSTRAINT PK_DSART PRIMARY KEY (ID)
)
GO

-- Conversion factors between units of measure.
CREATE TABLE U_FAKT (
    ID int IDENTITY(1,1) NOT NULL,
    ID_DSART int NULL,
    ID_HA int NULL,
    ID_HS int NULL,
    ID_ME int NULL,
    ID_STKL int NULL,
    ID_GKL int NULL,
    ID_RINDENKENNZ int NULL,
    LANGE_VON numeric(8,2) NULL,
    LANGE_BIS numeric(8,2) NULL,
    RM_UFA numeric(8,4) NULL,
    ATO_UFA numeric(8,4) NULL,
    LUT_UFA numeric(8,4) NULL,
    STK100_UFA numeric(8,4) NULL,
    ORDERBY int NULL,
    CONSTRAINT PK_U_FAKT PRIMARY KEY (ID),
    CONSTRAINT FK_U_FAKT_DSART FOREIGN KEY (ID_DSART) REFERENCES DSART (ID),
    CONSTRAINT FK_U_FAKT_HA FOREIGN KEY (ID_HA) REFERENCES HOLZART (ID),
    CONSTRAINT FK_U_FAKT_HS FOREIGN KEY (ID_HS) REFERENCES HOLZSORTE (ID),
    CONSTRAINT FK_U_FAKT_ME FOREIGN KEY (ID_ME) REFERENCES STAMM_TABELLEN (ID_STRING),
    CONSTRAINT FK_U_FAKT_STKL FOREIGN KEY (ID_STKL) REFERENCES STKL (ID),
    CONSTRAINT FK_U_FAKT_GKL FOREIGN KEY (ID_GKL) REFERENCES GUETEKLASSE (ID),
    CONSTRAINT FK_U_FAKT_RINDE FOREIGN KEY (ID_RINDENKENNZ) REFERENCES RINDENKENNZ (ID_RINDENKENNZ)
)
GO

CREATE TABLE NUTZUNGSART (
    ID int NOT NULL,
    NA nvarchar(5) NULL,
    NA_LANG nvarchar(50) NULL,
    NA_GROUP nvarchar(10) NULL,
    ALLOW_HOLZ bit NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_NUTZUNGSART PRIMARY KEY (ID)
)
GO

CREATE TABLE KALAMITAET (
    ID int NOT NULL,
    KA nvarchar(5) NULL,
    KA_LANG nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_KALAMITAET PRIMARY KEY (ID)
)
GO

-- ---------------------------------------------------------------------------------------------------------------------
-- Lists and invoices: kinds, prices, tariffs, fees
-- ---------------------------------------------------------------------------------------------------------------------

CREATE TABLE LISTENART (
    LISTENART int NOT NULL,
    TEXT nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_LISTENART PRIMARY KEY (LISTENART)
)
GO

CREATE TABLE RECHNUNGSART (
    RART_ID int NOT NULL,
    RECHNUNGSART nvarchar(50) NULL,
    KURZ nvarchar(10) NULL,
    BUCHNR nvarchar(50) NULL,
    KONTO nvarchar(10) NULL,
    MWST numeric(5,2) NULL,
    SKONTO numeric(5,2) NULL,
    ZAHLUNGSZIEL smallint NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_RECHNUNGSART PRIMARY KEY (RART_ID)
)
GO

CREATE TABLE BUCHNR (
    BUCHNR_ID int NOT NULL,
    BUCHUNGSTEXT nvarchar(50) NULL,
    KONTO nvarchar(10) NULL,
    CONSTRAINT PK_BUCHNR PRIMARY KEY (BUCHNR_ID)
)
GO

CREATE TABLE PREISE_TARIFE (
    ID_PREISTABNR int NOT NULL,
    RART_ID int NULL,
    HS nvarchar(10) NULL,
    HA nvarchar(5) NULL,
    GKL nvarchar(5) NULL,
    STKL nvarchar(5) NULL,
    PREIS numeric(10,2) NULL,
    CONSTRAINT PK_PREISE_TARIFE PRIMARY KEY (ID_PREISTABNR),
    CONSTRAINT FK_PREISE_TARIFE_RART FOREIGN KEY (RART_ID) REFERENCES RECHNUNGSART (RART_ID)
)
GO

-- The editor addresses the cells of this table by position: the order of the columns is fixed.
CREATE TABLE TARIFTABELLE (
    ID int IDENTITY(1,1) NOT NULL,
    DSART nvarchar(20) NULL,
    HS_GRUPPE nvarchar(10) NULL,
    HA_GRUPPE nvarchar(10) NULL,
    EST nvarchar(8) NULL,
    RINDENKENNZ nvarchar(5) NULL,
    RUCKE nvarchar(8) NULL,
    DM numeric(6,2) NULL,
    STKL nvarchar(5) NULL,
    LANGEKURZVON smallint NULL,
    LANGEKURZBIS smallint NULL,
    LANGELANGVON smallint NULL,
    LANGELANGBIS smallint NULL,
    AZ numeric(8,2) NULL,
    MZ numeric(8,2) NULL,
    MENGEN nvarchar(8) NULL,
    CONSTRAINT PK_TARIFTABELLE PRIMARY KEY (ID)
)
GO

-- Fees of a forest cooperative by assortment; the cooperative's number and the assortment lead the entry row.
CREATE TABLE GEBUEHREN_WALDKONSULTING (
    ID int IDENTITY(1,1) NOT NULL,
    FBG_NUMMER nvarchar(10) NULL,
    HS nvarchar(10) NULL,
    EINHEIT_EINKAUF nvarchar(10) NULL,
    GEBUEHR_EINKAUF numeric(8,2) NULL,
    EINHEIT_VERKAUF nvarchar(10) NULL,
    GEBUEHR_VERKAUF numeric(8,2) NULL,
    GUELTIG_BIS smalldatetime NULL,
    CONSTRAINT PK_GEBUEHREN_WALDKONSULTING PRIMARY KEY (ID)
)
GO

-- ---------------------------------------------------------------------------------------------------------------------
-- Goods
-- ---------------------------------------------------------------------------------------------------------------------

CREATE TABLE WARENEINHEIT (
    EINHEIT_ID int NOT NULL,
    EINHEIT nvarchar(10) NULL,
    BESCHREIBUNG nvarchar(50) NULL,
    DISABLE bit NULL,
    STANDART bit NULL,
    NUMMER int NULL,
    LDNR int NULL,
    CONSTRAINT PK_WARENEINHEIT PRIMARY KEY (EINHEIT_ID)
)
GO

CREATE TABLE WARENGRUPPE (
    GRUPPE_ID int NOT NULL,
    NUMMER int NULL,
    GRUPPE nvarchar(50) NULL,
    MWST numeric(5,2) NULL,
    EINHEIT_ID int NULL,
    LFNR int NULL,
    INFO nvarchar(max) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_WARENGRUPPE PRIMARY KEY (GRUPPE_ID),
    CONSTRAINT FK_WARENGRUPPE_EINHEIT FOREIGN KEY (EINHEIT_ID) REFERENCES WARENEINHEIT (EINHEIT_ID)
)
GO

CREATE TABLE WARENKATALOG (
    ART_ID int NOT NULL,
    BEZEICH1 nvarchar(50) NULL,
    GRUPPE_ID int NULL,
    LIEFERANT_ID int NULL,
    PREIS numeric(10,2) NULL,
    CONSTRAINT PK_WARENKATALOG PRIMARY KEY (ART_ID),
    CONSTRAINT FK_WARENKATALOG_GRUPPE FOREIGN KEY (GRUPPE_ID) REFERENCES WARENGRUPPE (GRUPPE_ID)
)
GO

-- ---------------------------------------------------------------------------------------------------------------------
-- Code tables of cost accounting. One table holds the codes of several lists, told apart by TABLE_NAME; a column of
-- PERSONAL names the list that an owner uses. NUMBER is text where codes have letters or leading zeros.
-- ---------------------------------------------------------------------------------------------------------------------

CREATE TABLE PRODUKT (
    ID int NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    GRUPPE int NULL,
    NUMBER int NULL,
    NAME nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_PRODUKT PRIMARY KEY (ID)
)
GO

CREATE TABLE LEISTUNGSART (
    ID int NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    GRUPPE int NULL,
    PRODUKT_ID int NULL,
    NUMBER int NULL,
    NAME nvarchar(50) NULL,
    MENGENEINHEIT int NULL,
    FLACHE bit NULL,
    ALLOW_HOLZ bit NULL,
    ERLOSE bit NULL,
    KOSTEN bit NULL,
    STUNDEN bit NULL,
    MAS bit NULL,
    HSGR nvarchar(255) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_LEISTUNGSART PRIMARY KEY (ID),
    CONSTRAINT FK_LEISTUNGSART_PRODUKT FOREIGN KEY (PRODUKT_ID) REFERENCES PRODUKT (ID),
    CONSTRAINT FK_LEISTUNGSART_EINHEIT FOREIGN KEY (MENGENEINHEIT) REFERENCES WARENEINHEIT (EINHEIT_ID)
)
GO

CREATE TABLE KOSTENART (
    ID int NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    GRUPPE int NULL,
    NUMBER nvarchar(8) NULL,
    NAME nvarchar(50) NULL,
    DIREKTERLOHN bit NULL,
    LNK bit NULL,
    ERLOSE bit NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_KOSTENART PRIMARY KEY (ID)
)
GO

CREATE TABLE KOSTENSTELLE_TYP (
    ID int IDENTITY(1,1) NOT NULL,
    NUMMER nvarchar(8) NULL,
    SHORT nvarchar(10) NULL,
    LONG nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_KOSTENSTELLE_TYP PRIMARY KEY (ID)
)
GO

CREATE TABLE KOSTENSTELLE (
    ID int NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    GRUPPE int NULL,
    NUMBER int NULL,
    ID_KOSTENSTELLE_TYP int NULL,
    NAME nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_KOSTENSTELLE PRIMARY KEY (ID),
    CONSTRAINT FK_KOSTENSTELLE_TYP FOREIGN KEY (ID_KOSTENSTELLE_TYP) REFERENCES KOSTENSTELLE_TYP (ID)
)
GO

CREATE TABLE OBJEKT (
    ID int NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    GRUPPE int NULL,
    NUMBER int NULL,
    NAME nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_OBJEKT PRIMARY KEY (ID)
)
GO

-- Chapters and titles of the public budget, such as 0801 and 119 01: text.
CREATE TABLE HH_KAPITEL (
    ID int NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    NUMBER nvarchar(8) NULL,
    NAME nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_HH_KAPITEL PRIMARY KEY (ID)
)
GO

CREATE TABLE HH_TITEL (
    ID int NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    NUMBER nvarchar(8) NULL,
    NAME nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_HH_TITEL PRIMARY KEY (ID)
)
GO

CREATE TABLE HH_HUL (
    ID int NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    NUMBER int NULL,
    NAME nvarchar(50) NULL,
    CONSTRAINT PK_HH_HUL PRIMARY KEY (ID)
)
GO

-- Kinds of payment.
CREATE TABLE ZUHLUNGSART (
    ID int NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    NUMBER int NULL,
    NAME nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_ZUHLUNGSART PRIMARY KEY (ID)
)
GO

-- Reasons of payment.
CREATE TABLE ZUHLUNGSGRUND (
    ID int NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    NUMBER int NULL,
    NAME nvarchar(50) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_ZUHLUNGSGRUND PRIMARY KEY (ID)
)
GO

CREATE TABLE ZUSCHLAGSWERTE (
    ID int NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    GRUPPE int NULL,
    NUMBER int NULL,
    NAME nvarchar(50) NULL,
    PROZENT numeric(6,2) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_ZUSCHLAGSWERTE PRIMARY KEY (ID)
)
GO

-- Work procedures; a service number that is not found is written as 0, so ID_LEISTUNGSART has no foreign key.
CREATE TABLE VERFAHREN (
    ID int IDENTITY(1,1) NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    NUMBER int NULL,
    GRUPPE int NULL,
    NAME nvarchar(50) NULL,
    ID_LEISTUNGSART int NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_VERFAHREN PRIMARY KEY (ID)
)
GO

CREATE TABLE BZT (
    ID int IDENTITY(1,1) NOT NULL,
    NUMBER int NULL,
    BZT_SHORT nvarchar(10) NULL,
    BZT_LANG nvarchar(50) NULL,
    CONSTRAINT PK_BZT PRIMARY KEY (ID)
)
GO

-- Relations of a record to rows of another list.
CREATE TABLE ONETOMANY (
    RELATION nvarchar(50) NOT NULL,
    ID_MASTER int NOT NULL,
    ID_SLAVE int NOT NULL,
    CONSTRAINT PK_ONETOMANY PRIMARY KEY (RELATION, ID_MASTER, ID_SLAVE)
)
GO

-- Values that change on given dates: a number (RATE) or a text.
CREATE TABLE ONETODATE (
    ID int IDENTITY(1,1) NOT NULL,
    TABLE_COLUMN nvarchar(50) NOT NULL,
    TABLE_ID int NOT NULL,
    DATUM smalldatetime NOT NULL,
    RATE numeric(12,4) NULL,
    TEXT nvarchar(50) NULL,
    CONSTRAINT PK_ONETODATE PRIMARY KEY (ID)
)
GO
CREATE INDEX IX_ONETODATE ON ONETODATE (TABLE_COLUMN, TABLE_ID, DATUM)
GO

-- ---------------------------------------------------------------------------------------------------------------------
-- Wages
-- ---------------------------------------------------------------------------------------------------------------------

CREATE TABLE EINHEIT (
    ID int NOT NULL,
    NAME nvarchar(20) NULL,
    CONSTRAINT PK_EINHEIT PRIMARY KEY (ID)
)
GO

CREATE TABLE DLS_LG (
    DLS_LG smallint NOT NULL,
    LANG_NAME nvarchar(50) NULL,
    CONSTRAINT PK_DLS_LG PRIMARY KEY (DLS_LG)
)
GO

-- Wage types, with free fields that the payroll export uses by position.
CREATE TABLE LOHNARTEN (
    ID int NOT NULL,
    TABLE_NAME nvarchar(20) NULL,
    GRUPPE int NULL,
    NUMBER int NULL,
    NAME nvarchar(50) NULL,
    SLA bit NOT NULL,
    EINHEIT int NULL,
    DLS_LG smallint NULL,
    KOSTENART_ID int NULL,
    SUMME_STD bit NOT NULL,
    TO_NETTO bit NULL,
    SOCIALZUSCHLAG bit NULL,
    VBL numeric(5,2) NULL,
    BERECHNUNGSMODUS smallint NULL,
    TFIELD1 nvarchar(20) NULL,
    TFIELD2 nvarchar(20) NULL,
    TFIELD3 nvarchar(20) NULL,
    TFIELD4 nvarchar(20) NULL,
    TFIELD5 nvarchar(20) NULL,
    TFIELD6 nvarchar(20) NULL,
    TFIELD7 nvarchar(20) NULL,
    TFIELD8 nvarchar(20) NULL,
    TFIELD9 nvarchar(20) NULL,
    TFIELD10 nvarchar(20) NULL,
    TFIELD11 nvarchar(20) NULL,
    TFIELD12 nvarchar(20) NULL,
    TFIELD13 nvarchar(20) NULL,
    TFIELD14 nvarchar(20) NULL,
    TFIELD15 nvarchar(20) NULL,
    TFIELD16 nvarchar(20) NULL,
    TFIELD17 nvarchar(20) NULL,
    TFIELD18 nvarchar(20) NULL,
    TFIELD19 nvarchar(20) NULL,
    TFIELD20 nvarchar(20) NULL,
    TFIELD21 nvarchar(20) NULL,
    TFIELD22 nvarchar(20) NULL,
    TFIELD23 nvarchar(20) NULL,
    TFIELD24 nvarchar(20) NULL,
    TFIELD25 nvarchar(20) NULL,
    TFIELD26 nvarchar(20) NULL,
    TFIELD27 nvarchar(20) NULL,
    TFIELD28 nvarchar(20) NULL,
    TFIELD29 nvarchar(20) NULL,
    TFIELD30 nvarchar(20) NULL,
    TFIELD31 nvarchar(20) NULL,
    TFIELD32 nvarchar(20) NULL,
    TFIELD33 nvarchar(20) NULL,
    TFIELD34 nvarchar(20) NULL,
    TFIELD35 nvarchar(20) NULL,
    TFIELD36 nvarchar(20) NULL,
    TFIELD37 nvarchar(20) NULL,
    TFIELD38 nvarchar(20) NULL,
    TFIELD39 nvarchar(20) NULL,
    TFIELD40 nvarchar(20) NULL,
    TFIELD41 nvarchar(20) NULL,
    TFIELD42 nvarchar(20) NULL,
    TFIELD43 nvarchar(20) NULL,
    TFIELD44 nvarchar(20) NULL,
    TFIELD45 nvarchar(20) NULL,
    TFIELD46 nvarchar(20) NULL,
    TFIELD47 nvarchar(20) NULL,
    TFIELD48 nvarchar(20) NULL,
    TFIELD49 nvarchar(20) NULL,
    TFIELD50 nvarchar(20) NULL,
    NFIELD1 numeric(12,2) NULL,
    NFIELD2 numeric(12,2) NULL,
    NFIELD3 numeric(12,2) NULL,
    NFIELD4 numeric(12,2) NULL,
    NFIELD5 numeric(12,2) NULL,
    NFIELD6 numeric(12,2) NULL,
    NFIELD7 numeric(12,2) NULL,
    NFIELD8 numeric(12,2) NULL,
    NFIELD9 numeric(12,2) NULL,
    NFIELD10 numeric(12,2) NULL,
    NFIELD11 numeric(12,2) NULL,
    NFIELD12 numeric(12,2) NULL,
    NFIELD13 numeric(12,2) NULL,
    NFIELD14 numeric(12,2) NULL,
    NFIELD15 numeric(12,2) NULL,
    NFIELD16 numeric(12,2) NULL,
    NFIELD17 numeric(12,2) NULL,
    NFIELD18 numeric(12,2) NULL,
    NFIELD19 numeric(12,2) NULL,
    NFIELD20 numeric(12,2) NULL,
    CHK1 bit NULL,
    CHK2 bit NULL,
    CHK3 bit NULL,
    CHK4 bit NULL,
    CHK5 bit NULL,
    CHK6 bit NULL,
    CHK7 bit NULL,
    CHK8 bit NULL,
    CHK9 bit NULL,
    CHK10 bit NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_LOHNARTEN PRIMARY KEY (ID),
    CONSTRAINT FK_LOHNARTEN_EINHEIT FOREIGN KEY (EINHEIT) REFERENCES EINHEIT (ID),
    CONSTRAINT FK_LOHNARTEN_KOSTENART FOREIGN KEY (KOSTENART_ID) REFERENCES KOSTENART (ID)
)
GO

-- Wage groups, a set for each validity date.
CREATE TABLE LOHNGRUPPE (
    ID int IDENTITY(1,1) NOT NULL,
    DATEWHILE smalldatetime NULL,
    NAMETAB nvarchar(20) NULL,
    NAME nvarchar(12) NULL,
    BEZEICHNUNG nvarchar(50) NULL,
    BETRAG numeric(10,2) NULL,
    EURO bit NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_LOHNGRUPPE PRIMARY KEY (ID)
)
GO

CREATE TABLE LOHNABSCHLUSS (
    JAHR int NOT NULL,
    MONAT int NOT NULL,
    ASCHLUSS_L smallint NULL,
    CONSTRAINT PK_LOHNABSCHLUSS PRIMARY KEY (JAHR, MONAT)
)
GO

CREATE TABLE BBF_SATZ_GF (
    ID int IDENTITY(1,1) NOT NULL,
    BIS_DATUM smalldatetime NULL,
    SATZ_MZ numeric(8,2) NULL,
    SATZ_WZ numeric(8,2) NULL,
    GF_AZ_EST numeric(8,2) NULL,
    GF_MZ_EST numeric(8,2) NULL,
    GF_STKL numeric(8,2) NULL,
    KAPPUNG_AZ_EST numeric(8,2) NULL,
    KAPPUNG_AZ_STKL numeric(8,2) NULL,
    KAPPUNG_MZ_STKL numeric(8,2) NULL,
    MINDESTLOHN_EST numeric(8,2) NULL,
    CONSTRAINT PK_BBF_SATZ_GF PRIMARY KEY (ID)
)
GO

-- ---------------------------------------------------------------------------------------------------------------------
-- Persons and firms: owners, customers, suppliers, workers
-- ---------------------------------------------------------------------------------------------------------------------

-- MANDANTEN 1: a forest owner whose accounts are kept here. ABRECH2 1: settled by the forest owners' association. The
-- columns named as code tables hold the TABLE_NAME of the list that the owner uses.
CREATE TABLE PERSONAL (
    ID_PERSONAL int NOT NULL,
    NUMMER nvarchar(10) NULL,
    KURZBEZEICHNUNG nvarchar(30) NULL,
    NAME nvarchar(50) NULL,
    STRASSE nvarchar(50) NULL,
    PLZ nvarchar(10) NULL,
    ORT nvarchar(50) NULL,
    ID_T_BUNDESLAND int NULL,
    ID_FORSTAMT int NULL,
    MANDANTEN bit NULL,
    ABRECH2 bit NULL,
    LOHNGRUPPE nvarchar(12) NULL,
    DLS numeric(8,2) NULL,
    LEISTUNGSART nvarchar(20) NULL,
    KOSTENART nvarchar(20) NULL,
    KOSTENSTELLE nvarchar(20) NULL,
    OBJEKT nvarchar(20) NULL,
    HH_KAPITEL nvarchar(20) NULL,
    HH_TITEL nvarchar(20) NULL,
    ZUHLUNGSART nvarchar(20) NULL,
    ZUHLUNGSGRUND nvarchar(20) NULL,
    HH_HUL nvarchar(20) NULL,
    PRODUKT nvarchar(20) NULL,
    ZUSCHLAGSWERTE nvarchar(20) NULL,
    LOHNARTEN nvarchar(20) NULL,
    VERFAHREN nvarchar(20) NULL,
    VERM_ZUSATZ nvarchar(1000) NULL,
    ABR1_ZUSATZ nvarchar(1000) NULL,
    ABR2_ZUSATZ nvarchar(1000) NULL,
    ABR3_ZUSATZ nvarchar(1000) NULL,
    ABR4_ZUSATZ nvarchar(1000) NULL,
    ABR5_ZUSATZ nvarchar(1000) NULL,
    ABR6_ZUSATZ nvarchar(1000) NULL,
    ABR7_ZUSATZ nvarchar(1000) NULL,
    ABR8_ZUSATZ nvarchar(1000) NULL,
    CONSTRAINT PK_PERSONAL PRIMARY KEY (ID_PERSONAL),
    CONSTRAINT FK_PERSONAL_BUNDESLAND FOREIGN KEY (ID_T_BUNDESLAND) REFERENCES T_BUNDESLAND (ID),
    CONSTRAINT FK_PERSONAL_FORSTAMT FOREIGN KEY (ID_FORSTAMT) REFERENCES RELTABLE (ID)
)
GO

-- Stands assigned to owners.
CREATE TABLE WB_WALDORT_ZUORD (
    ID_PERSONAL int NOT NULL,
    ID_WALDORT int NOT NULL,
    CONSTRAINT PK_WB_WALDORT_ZUORD PRIMARY KEY (ID_PERSONAL, ID_WALDORT)
)
GO
CREATE INDEX IX_WB_WALDORT_ZUORD_STAND ON WB_WALDORT_ZUORD (ID_WALDORT)
GO

CREATE TABLE VERTRAEGE (
    ID_VERTRAG int NOT NULL,
    VERTRAG_NAME nvarchar(50) NULL,
    ID_PERSONAL int NULL,
    ZUSATZTEXT nvarchar(2000) NULL,
    CONSTRAINT PK_VERTRAEGE PRIMARY KEY (ID_VERTRAG)
)
GO

-- ---------------------------------------------------------------------------------------------------------------------
-- Timber lists and invoices
-- ---------------------------------------------------------------------------------------------------------------------

CREATE TABLE LOGS (
    ID_LOG int NOT NULL,
    LISTE nvarchar(20) NULL,
    LISTENART int NULL,
    LISTENDATUM smalldatetime NULL,
    ID_WALDORT int NULL,
    MANDANTEN_ID int NULL,
    RELTABLE1 int NULL,
    RELTABLE2 int NULL,
    RELTABLE3 int NULL,
    RELTABLE4 int NULL,
    RELTABLE5 int NULL,
    RELTABLE6 int NULL,
    RELTABLE7 int NULL,
    RELTABLE8 int NULL,
    RELTABLE9 int NULL,
    RELTABLE10 int NULL,
    HA nvarchar(5) NULL,
    HS nvarchar(10) NULL,
    GKL nvarchar(5) NULL,
    STKL nvarchar(5) NULL,
    KKLASSE int NULL,
    NA nvarchar(5) NULL,
    KA nvarchar(5) NULL,
    ID_RINDENKENNZ int NULL,
    FARBE nvarchar(5) NULL,
    ZUGANG nvarchar(8) NULL,
    ABGANG nvarchar(8) NULL,
    EST nvarchar(8) NULL,
    MENGEN nvarchar(8) NULL,
    RUCKE nvarchar(8) NULL,
    MEFVERF nvarchar(8) NULL,
    MENGE numeric(12,3) NULL,
    CONSTRAINT PK_LOGS PRIMARY KEY (ID_LOG)
)
GO
CREATE INDEX IX_LOGS_WALDORT ON LOGS (ID_WALDORT)
GO

-- Parties of a list: the invoice party and those of the eight deductions.
CREATE TABLE LOGS_RECH (
    ID int IDENTITY(1,1) NOT NULL,
    ID_LOG int NULL,
    R_KUNDE int NULL,
    A1_KUNDE int NULL,
    A2_KUNDE int NULL,
    A3_KUNDE int NULL,
    A4_KUNDE int NULL,
    A5_KUNDE int NULL,
    A6_KUNDE int NULL,
    A7_KUNDE int NULL,
    A8_KUNDE int NULL,
    CONSTRAINT PK_LOGS_RECH PRIMARY KEY (ID)
)
GO
CREATE INDEX IX_LOGS_RECH_LOG ON LOGS_RECH (ID_LOG)
GO

CREATE TABLE HEADERRECH (
    R_NAME nvarchar(30) NOT NULL,
    VER_TYPE nvarchar(20) NOT NULL,
    RART_ID int NULL,
    BUCHNR_ID int NULL,
    ID_ANLASSART int NULL,
    RECH_ZUSATZ nvarchar(2000) NULL,
    ZUSATZTEXT nvarchar(1000) NULL,
    ZUSATZTEXT_1 nvarchar(1000) NULL,
    ZUSATZTEXT_2 nvarchar(1000) NULL,
    CONSTRAINT PK_HEADERRECH PRIMARY KEY (R_NAME, VER_TYPE),
    CONSTRAINT FK_HEADERRECH_ANLASS FOREIGN KEY (ID_ANLASSART) REFERENCES ANLASSART (ID)
)
GO

CREATE TABLE RECHNUNGSJOURNAL (
    ID int NOT NULL,
    R_NAME nvarchar(30) NULL,
    BELEG_SPEICHERPFAD nvarchar(255) NULL,
    CONSTRAINT PK_RECHNUNGSJOURNAL PRIMARY KEY (ID)
)
GO

CREATE TABLE ABSCHLAG (
    ID int NOT NULL,
    RECH_NAME nvarchar(30) NULL,
    VER_TYPE nvarchar(20) NULL,
    ART_ID int NULL,
    CONSTRAINT PK_ABSCHLAG PRIMARY KEY (ID)
)
GO

CREATE TABLE NN_POSITIONEN (
    ID int NOT NULL,
    NN_NAME nvarchar(30) NULL,
    VER_TYPE nvarchar(20) NULL,
    ARTICLE_ID int NULL,
    KUNDE_ID int NULL,
    WALDORT_ID int NULL,
    CONSTRAINT PK_NN_POSITIONEN PRIMARY KEY (ID)
)
GO
CREATE INDEX IX_NN_POSITIONEN_STAND ON NN_POSITIONEN (WALDORT_ID)
GO

-- ---------------------------------------------------------------------------------------------------------------------
-- Work orders, vouchers, store, planning
-- ---------------------------------------------------------------------------------------------------------------------

CREATE TABLE ARBEITSAUFTRAG_KOPF (
    ID int NOT NULL,
    AA_NUMMER nvarchar(20) NULL,
    NAME nvarchar(50) NULL,
    FORSTAMT int NULL,
    PERSONAL_ID int NULL,
    PRODUKT_ID int NULL,
    ID_SONDERMERKMAL int NULL,
    BESCHREIBUNG nvarchar(max) NULL,
    CONSTRAINT PK_ARBEITSAUFTRAG_KOPF PRIMARY KEY (ID)
)
GO

CREATE TABLE ARBEITSAUFTRAG (
    ID int NOT NULL,
    ARBEITSAUFTRAG_KOPF_ID int NULL,
    PERSONAL_ID int NULL,
    WO_ID int NULL,
    LEISTUNGSART_ID int NULL,
    KOSTENART_ID int NULL,
    KOSTENSTELLE_ID int NULL,
    OBJEKT_ID int NULL,
    HAUSHALT_TITEL_ID int NULL,
    HAUSHALT_KAPITEL_ID int NULL,
    CONSTRAINT PK_ARBEITSAUFTRAG PRIMARY KEY (ID)
)
GO
CREATE INDEX IX_ARBEITSAUFTRAG_STAND ON ARBEITSAUFTRAG (WO_ID)
GO

CREATE TABLE ARBEITSAUFTRAG_KOPF_PLANN (
    ID int NOT NULL,
    NAME nvarchar(50) NULL,
    BESCHREIBUNG nvarchar(max) NULL,
    CONSTRAINT PK_ARBEITSAUFTRAG_KOPF_PLANN PRIMARY KEY (ID)
)
GO

CREATE TABLE ARBEITSAUFTRAG_PLANN (
    ID int NOT NULL,
    AA_PLANN_ID int NULL,
    WO_ID int NULL,
    CONSTRAINT PK_ARBEITSAUFTRAG_PLANN PRIMARY KEY (ID)
)
GO
CREATE INDEX IX_ARBEITSAUFTRAG_PLANN_STAND ON ARBEITSAUFTRAG_PLANN (WO_ID)
GO

-- Own consumption of timber, by work order line, kind and use.
CREATE TABLE NATURALVOLLZUG_KLR (
    ID int NOT NULL,
    ID_ARBEITSAUFTRAG int NULL,
    ID_BZT int NULL,
    ID_VM int NULL,
    CONSTRAINT PK_NATURALVOLLZUG_KLR PRIMARY KEY (ID)
)
GO

CREATE TABLE BELEGE (
    ID int NOT NULL,
    NUMMER nvarchar(20) NULL,
    AA_NUMMER int NULL,
    TITEL_ID int NULL,
    KAPITEL_ID int NULL,
    HULNR int NULL,
    ZAHLUNGSART int NULL,
    ZAHLUNGSGRUND int NULL,
    CONSTRAINT PK_BELEGE PRIMARY KEY (ID)
)
GO

CREATE TABLE LAGER (
    ID int NOT NULL,
    NUMMER nvarchar(20) NULL,
    PERSONAL_ID int NULL,
    TITEL_ID int NULL,
    KAPITEL_ID int NULL,
    HULNR int NULL,
    ZAHLUNGSART int NULL,
    ZAHLUNGSGRUND int NULL,
    CONSTRAINT PK_LAGER PRIMARY KEY (ID)
)
GO

CREATE TABLE PROJEKTE (
    ID int NOT NULL,
    KURZTEXT nvarchar(30) NULL,
    LANGTEXT nvarchar(100) NULL,
    CONSTRAINT PK_PROJEKTE PRIMARY KEY (ID)
)
GO

-- Felling and planting plans. No usage check knows them: the database itself keeps a planned stand from being deleted.
CREATE TABLE [PLAN] (
    ID int NOT NULL,
    KURZTEXT nvarchar(30) NULL,
    LANGTEXT nvarchar(100) NULL,
    ID_WALDORT int NULL,
    CONSTRAINT PK_PLAN PRIMARY KEY (ID),
    CONSTRAINT FK_PLAN_WALDORT FOREIGN KEY (ID_WALDORT) REFERENCES WALDORT (ID_WALDORT)
)
GO
CREATE INDEX IX_PLAN_WALDORT ON [PLAN] (ID_WALDORT)
GO

-- ---------------------------------------------------------------------------------------------------------------------
-- Models: saved states of screens
-- ---------------------------------------------------------------------------------------------------------------------

-- The lines of a deduction table are read back in the order of this key.
CREATE TABLE MODELS (
    ID int IDENTITY(1,1) NOT NULL,
    NAME nvarchar(40) NULL,
    RELATION nvarchar(50) NULL,
    MODEL nvarchar(max) NULL,
    ID_USER int NULL,
    NICHT_ANDERBAR smallint NULL,
    ID_ACCESS_LEVELS int NULL,
    STANDARD smallint NULL,
    CONSTRAINT PK_MODELS PRIMARY KEY (ID)
)
GO

-- Print lists, and those that a user has taken over; the link is the text of the list.
CREATE TABLE BB_TSM_GESPERRTE_LISTEN (
    ID int NOT NULL,
    LISTE nvarchar(60) NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_BB_TSM_GESPERRTE_LISTEN PRIMARY KEY (ID)
)
GO

CREATE TABLE BB_TSM_GESPERRTE_LISTEN_USERS (
    ID int IDENTITY(1,1) NOT NULL,
    ID_USER int NULL,
    LISTE nvarchar(60) NULL,
    CONSTRAINT PK_BB_TSM_LISTEN_USERS PRIMARY KEY (ID)
)
GO

-- ---------------------------------------------------------------------------------------------------------------------
-- Services, order planning, cost objects, hunting
-- ---------------------------------------------------------------------------------------------------------------------

CREATE TABLE BB_LEISTUNGS_KOPF (
    ID int NOT NULL,
    NUMMER nvarchar(20) NULL,
    ID_PERSONAL int NULL,
    DATUM smalldatetime NULL,
    CONSTRAINT PK_BB_LEISTUNGS_KOPF PRIMARY KEY (ID)
)
GO

-- Surcharge days of a service sheet: AUFSCHLAG 1 sick days, 2 leave days.
CREATE TABLE BB_LEISTUNGS_AUFSCHLAG (
    ID int IDENTITY(1,1) NOT NULL,
    ID_BB_LEISTUNGS_KOPF int NULL,
    AUFSCHLAG smallint NULL,
    TAGE numeric(6,2) NULL,
    DATUM_1TAG smalldatetime NULL,
    CONSTRAINT PK_BB_LEISTUNGS_AUFSCHLAG PRIMARY KEY (ID)
)
GO

CREATE TABLE BB_T_AUFTRAGS_PLANUNG (
    ID int NOT NULL,
    AUFTRAGSNUMMER nvarchar(20) NULL,
    SHORT nvarchar(30) NULL,
    LONG nvarchar(50) NULL,
    ID_ACCESS_LEVELS int NULL,
    DISABLE bit NULL,
    CONSTRAINT PK_BB_T_AUFTRAGS_PLANUNG PRIMARY KEY (ID)
)
GO

-- Groups of cost objects; MBF 1: vehicles and machines that keep a log book.
CREATE TABLE BB_T_OBJEKTGRUPPE (
    ID int NOT NULL,
    NUMMER int NULL,
    SHORT nvarchar(30) NULL,
    LONG nvarchar(50) NULL,
    MBF bit NULL,
    CONSTRAINT PK_BB_T_OBJEKTGRUPPE PRIMARY KEY (ID)
)
GO

CREATE TABLE BB_T_OBJEKTE (
    ID int NOT NULL,
    ID_BB_T_OBJEKTGRUPPE int NULL,
    NUMMER int NULL,
    SHORT nvarchar(30) NULL,
    LONG nvarchar(50) NULL,
    ID_ACCESS_LEVELS int NULL,
    CONSTRAINT PK_BB_T_OBJEKTE PRIMARY KEY (ID),
    CONSTRAINT FK_BB_T_OBJEKTE_GRUPPE FOREIGN KEY (ID_BB_T_OBJEKTGRUPPE) REFERENCES BB_T_OBJEKTGRUPPE (ID)
)
GO

-- Hunting districts of a hunting year (JAGDJAHR such as 2024/2025).
CREATE TABLE BB_T_JAGDBEZIRKE (
    ID int NOT NULL,
    JAGDJAHR nvarchar(9) NULL,
    NUMMER int NULL,
    LONG nvarchar(30) NULL,
    ID_ACCESS_LEVELS int NULL,
    CONSTRAINT PK_BB_T_JAGDBEZIRKE PRIMARY KEY (ID)
)
GO
