-- Installation, settings, access levels, users, reworded and free texts.

INSERT INTO KORVEX (ID, USER_NAME, COMP_NAME) VALUES
(1, N'Forstliche Datenstelle', N'Landesforstverwaltung Musterland')
GO

-- WALDORTLEVEL: stand levels in use. STANDARD_...: the group column (1 to 5) the installation works with. DSW_WALDORT: 1
-- lets users of client BB pick stands in the outside application.
INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE, TEXT_VALUE) VALUES
(N'WALDORTLEVEL', 6, NULL),
(N'DSW_WALDORT', 1, NULL),
(N'DSW_ZEIGEAUFRUF', 0, NULL),
(N'DSW_WALDORTINPUT', 0, NULL),
(N'CHANGE_MODELS', 1, NULL),
(N'STANDARD_HS', 1, NULL),
(N'STANDARD_HA', 1, NULL),
(N'STANDARD_HSGR', 1, NULL),
(N'PATHOFWVOFILE', NULL, N'belege')
GO

INSERT INTO BB_STRUKTUREN (ID, DSW_STRUKTUR) VALUES
(1, N'STAAT'),
(2, N'KOMMUNE'),
(3, N'PRIVAT')
GO

-- A code that ends in 00 is an enterprise, the others are its districts. Level 9 has no link to the outside application.
INSERT INTO ACCESS_LEVELS (ID, NAME, ACCESS_LEVELS, ADR_DSW, ID_BB_STRUKTUREN) VALUES
(1, N'Staatswald Müritz', N'0100', N'BB|01|00|00', 1),
(2, N'Revier Birkenhain', N'0101', N'BB|01|01|00', 1),
(3, N'Revier Grünau', N'0102', N'BB|01|02|00', 1),
(4, N'Staatswald Spreewald', N'0200', N'BB|02|00|00', 1),
(5, N'Revier Lärchental', N'0201', N'BB|02|01|00', 1),
(6, N'Kommunalwald Wörth', N'0300', N'BB|03|00|00', 2),
(7, N'Gemeindewald Büchelberg', N'0301', N'BB|03|01|00', 2),
(8, N'Privatwald Söhre', N'0400', N'BB|04|00|00', 3),
(9, N'Direktion', N'9900', NULL, NULL)
GO

-- No level: sees what is common to all, and nothing that belongs to a level.
INSERT INTO USERS (ID_USER, NAME, LONGNAME, ID_ACCESS_LEVELS) VALUES
(1, N'admin', N'Verwaltung', NULL),
(2, N'mueller', N'Anna Müller, Staatswald Müritz', 1),
(3, N'foerster', N'Jörg Förster, Revier Birkenhain', 2),
(4, N'schulze', N'Petra Schulze, Staatswald Spreewald', 4),
(5, N'weiss', N'Günther Weiß, Kommunalwald Wörth', 6),
(6, N'direktion', N'Dr. Käthe Brückner, Direktion', 9),
(7, N'gast', N'Gast (nur lesen)', NULL)
GO

INSERT INTO RIGHTS (ID_USER, CODE) VALUES
(1, N'B018'), (1, N'B049'), (1, N'B057'),
(2, N'B049'), (2, N'B057'),
(3, N'B049'),
(4, N'B018'), (4, N'B049'),
(5, N'B049'), (5, N'B057'),
(6, N'B018'), (6, N'B049'), (6, N'B057')
GO

INSERT INTO LAYOUTS (ID_USER, NAME, CONTROL, COLUMN_TEXT) VALUES
(1, N'F_FlexGrid_WVO_K_BEL', N'MSFG', NULL)
GO

-- Texts of the catalogue that users may reword, by the group under which the code list editor shows them.
INSERT INTO STRINGS (ID_STRING, LABEL_GROUP, DEUTSCH, ENGLISH, CUSTOM_DEUTSCH, CUSTOM_ENGLISH) VALUES
(726, N'1LV', N'Holzliste', N'Log list', NULL, NULL),
(178, N'1LV', N'Holzarten', N'Tree species', NULL, NULL),
(684, N'1LV', N'Holzsorten', N'Timber assortments', NULL, NULL),
(708, N'1LV', N'Nutzungsarten und Kalamitäten', N'Harvest types and calamities', NULL, NULL),
(565, N'1VN', N'Warenartikel', N'Goods article', NULL, NULL),
(1188, N'1VN', N'Wareneinheiten', N'Goods units', NULL, NULL),
(1189, N'1VN', N'Warengruppen', N'Goods groups', NULL, NULL),
(100, N'1PV', N'Mandant', N'Owner client', NULL, NULL),
(340, N'1PV', N'Lieferant', N'Supplier', NULL, NULL),
(460, N'1PV', N'Kunde', N'Customer', NULL, NULL),
(3074, N'1PV', N'Abrechnungskunde 1', N'Settlement party 1', NULL, NULL),
(3075, N'1PV', N'Abrechnungskunde 2', N'Settlement party 2', NULL, NULL),
(3076, N'1PV', N'Abrechnungskunde 3', N'Settlement party 3', NULL, NULL),
(3077, N'1PV', N'Abrechnungskunde 4', N'Settlement party 4', NULL, NULL),
(3078, N'2PV', N'Abrechnungskunde 5', N'Settlement party 5', NULL, NULL),
(3079, N'2PV', N'Abrechnungskunde 6', N'Settlement party 6', NULL, NULL),
(3080, N'2PV', N'Abrechnungskunde 7', N'Settlement party 7', N'Spediteur', N'Haulier'),
(3081, N'2PV', N'Abrechnungskunde 8', N'Settlement party 8', NULL, NULL),
(388, N'WAL', N'Waldort', N'Stand', NULL, NULL),
(1021, N'WAL', N'Waldbesitzer', N'Forest owner', NULL, NULL),
(646, N'HDR', N'Abrechnung 1', N'Settlement 1', NULL, NULL),
(649, N'HDR', N'Abrechnung 2', N'Settlement 2', NULL, NULL),
(652, N'HDR', N'Abrechnung 3', N'Settlement 3', NULL, NULL),
(655, N'HDR', N'Abrechnung 4', N'Settlement 4', NULL, NULL),
(635, N'HDR', N'Abrechnung 7', N'Settlement 7', N'Frachtabrechnung', N'Freight settlement'),
(2504, N'BBF', N'Produkt', N'Product', NULL, NULL),
(2507, N'BBF', N'Kostenstelle', N'Cost centre', NULL, NULL),
(2508, N'BBF', N'Objekt', N'Object', NULL, NULL),
(2509, N'BBF', N'Leistungsart', N'Service type', NULL, NULL),
(2510, N'BBF', N'Kostenart', N'Cost type', NULL, NULL),
(164, N'1NL', N'Rechnung', N'Invoice', NULL, NULL),
(1528, N'1NL', N'Vertrag', N'Contract', NULL, NULL)
GO

-- Free texts; their numbers lie above those of the catalogue.
INSERT INTO STRINGS (ID_STRING, LABEL_GROUP, DEUTSCH, ENGLISH) VALUES
(10001, N'XXX', N'Holz lagert an der Waldstraße.', N'Timber is stored at the forest road.'),
(10002, N'XXX', N'Abfuhr nur bei Frost oder Trockenheit.', N'Haul only in frost or drought.'),
(10003, N'XXX', N'Rückegassen sind freizuhalten.', N'Keep skidding trails clear.'),
(10004, N'XXX', N'Zertifiziert nach PEFC.', N'PEFC certified.')
GO

-- Sub-compartments are small letters; the other levels are free.
INSERT INTO T_WALDORT (ID, WONR, SHORT, LONG) VALUES
(1, 5, N'a', N'Unterabteilung a'),
(2, 5, N'b', N'Unterabteilung b'),
(3, 5, N'c', N'Unterabteilung c'),
(4, 5, N'd', N'Unterabteilung d'),
(5, 5, N'e', N'Unterabteilung e'),
(6, 5, N'f', N'Unterabteilung f')
GO
