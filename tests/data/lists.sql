-- Code lists with a few rows each, and records that use some of the codes.
INSERT INTO STRINGS (ID_STRING, LABEL_GROUP, DEUTSCH, ENGLISH, CUSTOM_DEUTSCH) VALUES
(90001, '1LV', 'Losnummer', 'Lot number', 'Los'), (90002, '1LV', 'Abfuhr', 'Haulage', NULL),
(90003, '1VN', 'Verfahren', 'Procedure', NULL), (90004, '1PV', 'Preis', 'Price', NULL),
(90005, '2PV', 'Preis zwei', 'Price two', NULL), (90006, 'WAL', 'Waldort', 'Stand', NULL),
(90007, 'HDR', 'Kopf', 'Head', NULL), (90008, 'BBF', 'Betrieb', 'Enterprise', NULL),
(90009, '1NL', 'Nachlass', 'Discount', NULL)
GO
INSERT INTO STAMM_TABELLEN (ID_STRING, LABEL_GROUP, SHORTNAME, LONGNAME, DISABLE) VALUES
(1, 'ENTRIND', 'M', 'Mit Rinde', NULL), (2, 'ENTRIND', 'O', 'Ohne Rinde', NULL),
(10, 'MEFVERF', 'SEK', 'Sektion', NULL), (11, 'MEFVERF', 'STM', 'Stock', 1),
(20, 'MENGEN', 'FM', 'Festmeter', NULL), (21, 'MENGEN', 'RM', NULL, 0),
(30, 'EST', NULL, 'ohne', NULL), (31, 'EST', 'A', 'Tarif A', NULL),
(40, 'ZUGANG', 'HI', 'Hieb', NULL), (41, 'ZUGANG', 'ZK', 'Zukauf', NULL), (42, 'ZUGANG', 'ZZ', 'Altbestand', 1),
(50, 'ABGANG', 'VK', 'Verkauf', NULL), (51, 'ABGANG', 'ZA', 'Abgang alt', NULL),
(60, 'RUCKE', 'PF', 'Pferd', NULL),
(70, 'KUN_GR0', 'K0', 'Kunden', NULL), (71, 'KUN_GR1', 'K1', 'Kunden 1', NULL), (72, 'KUN_WAL', 'KW', 'Waldbesitzer', NULL),
(90, 'LOHNGRUND', '17', 'Regen', NULL)
GO
INSERT INTO BBF_GRUPPE (ID, LABEL_GROUP, NUMBER, NAME) VALUES
(5, 'RELTABLE', 11, 'Gruppe elf'), (6, 'RELTABLE', 12, 'Gruppe zwölf'), (7, 'KOSTENART', 13, 'andere')
GO
INSERT INTO RELTABLE (ID, RELTABLE_ID, KURZNAME, LANGNAME, GRUPPE, DISABLE, ID_ACCESS_LEVELS) VALUES
(1, 1, 'FA1', 'Forstamt 1', 5, NULL, NULL), (2, 1, 'FA2', 'Forstamt 2', NULL, 1, NULL), (3, 1, 'FA3', 'fremd', NULL, NULL, 2),
(4, 2, 'RV1', 'Revier 1', 6, NULL, NULL), (5, 2, 'AAA', 'Revier A', NULL, NULL, NULL)
GO
INSERT INTO F1 (ID, SHORT, LONG, DISABLE) VALUES (1, 'b', 'Beta', NULL), (2, 'a', 'Alpha', 1)
GO
INSERT INTO F2 (ID, SHORT, LONG, DISABLE) VALUES (1, 'y', 'Ypsilon', NULL), (2, 'x', 'Xylo', NULL)
GO
INSERT INTO FARBE (FARBE, FARBE_LANG, DISABLE) VALUES ('ROT', 'Rot', 0), ('WEISS', 'Weiß', 1)
GO
INSERT INTO T_BUNDESLAND (SHORT, LONG, DISABLE) VALUES ('BB', 'Brandenburg', 0), ('SN', 'Sachsen', NULL)
GO
INSERT INTO ANLASSART (ID, NAME, TYPE_OF_RECH) VALUES (1, 'Ernte', ''), (2, 'Sturm', '')
GO
INSERT INTO SONDERMERKMAL (NUMMER, NAME, DISABLE) VALUES ('S1', 'Sonder 1', NULL), ('S2', 'Sonder 2', 1)
GO
INSERT INTO LOGS (ID_LOG, LISTE, ZUGANG, ABGANG, EST, MENGEN, RUCKE, MEFVERF, FARBE) VALUES
(1, '2024-101', 'HI', 'VK', 'A', 'FM', 'PF', 'SEK', 'ROT'), (2, '2024-102', 'HI', 'VK', 'A', 'FM', 'PF', 'SEK', 'ROT')
GO
INSERT INTO ARBEITSAUFTRAG_KOPF (ID, AA_NUMMER, NAME, ID_SONDERMERKMAL) VALUES (1, 'AA-1', 'Pflanzung', 1)
GO
