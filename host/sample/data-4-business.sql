-- Timber lists, invoices, work orders, models and the rest of the daily business. Needs the stands: rows refer to them by
-- their key, whatever numbers the database gave them.

-- Assignments to an owner: a whole block, since where-used checks look at every stand of a subtree.
INSERT INTO WB_WALDORT_ZUORD (ID_PERSONAL, ID_WALDORT)
SELECT 3, ID_WALDORT FROM WALDORT WHERE WO1 = N'Söhre' AND WO2 = N'03' AND WO3 = N'II'
GO

INSERT INTO WB_WALDORT_ZUORD (ID_PERSONAL, ID_WALDORT)
SELECT 4, ID_WALDORT FROM WALDORT WHERE WO1 = N'Spree' AND WO2 = N'04' AND WO3 = N'Süd' AND WO4 = N'64'
GO

INSERT INTO LOGS (ID_LOG, LISTE, LISTENART, LISTENDATUM, MANDANTEN_ID, RELTABLE1, RELTABLE2, HA, HS, GKL, STKL, KKLASSE, NA, KA,
    ID_RINDENKENNZ, FARBE, ZUGANG, ABGANG, EST, MENGEN, RUCKE, MEFVERF, MENGE, ID_WALDORT) VALUES
(1, N'2024-101', 1, '20240112', 1, 2, NULL, N'FI', N'LAS', N'BC', N'2b', 2, N'VN', NULL, 2, N'RO', N'EIN', N'VERK', N'1', N'Efm', N'FORW', N'HV', 214.72,
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Harz' AND WO2 = N'04' AND WO3 = N'III' AND WO4 = N'62' AND WO5 = N'a' AND WO6 = N'2')),
(2, N'2024-101', 1, '20240112', 1, 2, NULL, N'FI', N'LAS4', N'B', N'3a', 2, N'VN', NULL, 2, N'RO', N'EIN', N'VERK', N'1', N'Efm', N'FORW', N'HV', 88.4,
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Harz' AND WO2 = N'04' AND WO3 = N'III' AND WO4 = N'62' AND WO5 = N'a' AND WO6 = N'2')),
(3, N'2024-102', 1, '20240119', 1, 2, NULL, N'FI', N'L', N'C', N'4', 4, N'ZN', N'BK', 2, N'GE', N'EIN', N'VERK', N'2', N'Efm', N'SCHL', N'MM', 41.06,
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Harz' AND WO2 = N'02' AND WO3 = N'Süd' AND WO4 = N'37' AND WO5 = N'b' AND WO6 = N'1')),
(4, N'2024-110', 1, '20240205', 1, 1, 20, N'BU', N'L', N'B', N'5', 4, N'EN', NULL, 1, N'BL', N'EIN', N'VERK', N'3', N'Efm', N'SCHL', N'MM', 63.9,
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Eifel' AND WO2 = N'02' AND WO3 = N'III' AND WO4 = N'32' AND WO5 = N'b' AND WO6 = N'1')),
(5, N'2024-110', 1, '20240205', 1, 1, 20, N'BU', N'FUR', N'A', N'6', 4, N'EN', NULL, 1, N'WE', N'EIN', N'VERK', N'3', N'Efm', N'SCHL', N'MM', 4.18,
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Eifel' AND WO2 = N'02' AND WO3 = N'III' AND WO4 = N'32' AND WO5 = N'b' AND WO6 = N'1')),
(6, N'2024-111', 2, '20240212', 1, 4, 23, N'BU', N'IS', N'IN', NULL, NULL, N'VN', NULL, 2, NULL, N'EIN', N'VERK', NULL, N'Rm', N'FORW', N'SEK', 120,
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Rhön' AND WO2 = N'04' AND WO3 = N'IV' AND WO4 = N'74' AND WO5 = N'b' AND WO6 = N'0')),
(7, N'2024-117', 1, '20240220', 1, 3, 21, N'KI', N'LAS', N'BC', N'2a', 1, N'VN', NULL, 2, N'OR', N'EIN', NULL, N'4', N'Efm', N'FORW', N'HV', 310.5,
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Müritz' AND WO2 = N'01' AND WO3 = N'III' AND WO4 = N'14' AND WO5 = N'b' AND WO6 = N'0')),
(8, N'2024-118', 3, '20240301', 2, 8, NULL, N'EI', N'SW', N'C', N'4', 3, N'EN', NULL, 1, N'GR', N'EIN', N'VERK', NULL, N'Efm', N'SCHL', N'WV', 27.3,
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Wörth' AND WO2 = N'03' AND WO3 = N'I' AND WO4 = N'33' AND WO5 = N'b' AND WO6 = N'3')),
(9, N'2024-119', 4, '20240304', 3, 5, NULL, N'BU', N'BL', NULL, NULL, NULL, N'JP', NULL, NULL, NULL, N'EIN', N'SELBW', NULL, N'Fm', N'OHNE', N'MM', 12,
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Söhre' AND WO2 = N'03' AND WO3 = N'IV' AND WO4 = N'63' AND WO5 = N'b' AND WO6 = N'0')),
(10, N'2023-488', 1, '20231128', 1, 7, NULL, N'EI', N'L', N'B', N'6', 4, N'EN', N'ST', 1, N'RO', N'KORR', N'VERL', NULL, N'Efm', N'SEIL', N'MM', 9.75,
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Taunus' AND WO2 = N'01' AND WO3 = N'III' AND WO4 = N'21' AND WO5 = N'a' AND WO6 = N'2')),
(11, N'2023-490', 1, '20231204', 1, 9, NULL, N'LÄ', N'L', N'B', N'3b', 3, N'VN', NULL, 3, N'BL', N'UML', N'DEPUT', NULL, N'Efm', N'PFERD', N'MM', 18.2, NULL)
GO

INSERT INTO LOGS_RECH (ID_LOG, R_KUNDE, A1_KUNDE, A2_KUNDE, A3_KUNDE, A4_KUNDE, A5_KUNDE, A6_KUNDE, A7_KUNDE, A8_KUNDE) VALUES
(1, 10, 11, 0, 13, NULL, NULL, NULL, NULL, NULL),
(2, 10, 11, 0, 13, NULL, NULL, NULL, NULL, NULL),
(3, 10, 0, 15, 0, 0, 0, 0, 0, 0),
(4, 10, 0, 15, 13, 0, 0, 0, 0, 0),
(5, 12, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
(6, 12, 11, NULL, NULL, NULL, NULL, 13, NULL, NULL),
(7, NULL, 11, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
(8, 10, NULL, NULL, NULL, NULL, NULL, NULL, 13, NULL),
(9, 14, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
(11, 0, 0, 0, 0, 0, 0, 0, 0, 0)
GO

INSERT INTO HEADERRECH (R_NAME, VER_TYPE, RART_ID, BUCHNR_ID, ID_ANLASSART, RECH_ZUSATZ, ZUSATZTEXT, ZUSATZTEXT_1, ZUSATZTEXT_2) VALUES
(N'R2024-0017', N'R_0', 1, 1, 1, N'Zahlbar innerhalb von 30 Tagen.', N'Zahlbar innerhalb von 30 Tagen.', NULL, NULL),
(N'R2024-0018', N'R_0', 1, 2, 1, NULL, NULL, NULL, NULL),
(N'R2024-0018', N'A1_0', 2, 2, NULL, N'Gutschrift für Einschlag.', NULL, NULL, NULL),
(N'B2024-0003', N'R_0', 3, 3, 2, NULL, NULL, NULL, NULL)
GO

INSERT INTO RECHNUNGSJOURNAL (ID, R_NAME, BELEG_SPEICHERPFAD) VALUES
(1, N'R2024-0017', N'belege/R2024-0017.pdf'),
(2, N'R2024-0018', NULL)
GO

INSERT INTO ABSCHLAG (ID, RECH_NAME, VER_TYPE, ART_ID) VALUES
(1, N'AB2024-001', N'A1', 6),
(2, N'AB2024-002', N'A3', 6),
(3, N'AB2024-002', N'A3', 6)
GO

INSERT INTO NN_POSITIONEN (ID, NN_NAME, VER_TYPE, ARTICLE_ID, KUNDE_ID, WALDORT_ID) VALUES
(1, N'NN2024-001', N'A2', 1, 14,
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Söhre' AND WO2 = N'02' AND WO3 = N'Höhe' AND WO4 = N'31' AND WO5 = N'a' AND WO6 = N'2')),
(2, N'NN2024-002', N'R', 3, 14, NULL),
(3, N'NN2024-003', N'A1', 6, 10,
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Rhön' AND WO2 = N'03' AND WO3 = N'III' AND WO4 = N'60' AND WO5 = N'b' AND WO6 = N'1'))
GO

INSERT INTO ARBEITSAUFTRAG_KOPF (ID, AA_NUMMER, NAME, FORSTAMT, PERSONAL_ID, PRODUKT_ID, ID_SONDERMERKMAL, BESCHREIBUNG) VALUES
(1, N'AA-2024-001', N'Durchforstung Hühnerberg', 2, 1, 1, NULL, N'Z-Bäume sind markiert. Rückegassen im Abstand von 40 m.'),
(2, N'AA-2024-002', N'Pflanzung Kohlplatte', 4, 1, 3, 1, NULL),
(3, N'AA-2024-003', N'Zaunbau Speck', 3, 1, 3, 4, NULL),
(4, N'AA-2024-004', N'Holzernte Gemeindewald', 8, 2, 5, NULL, NULL)
GO

INSERT INTO ARBEITSAUFTRAG (ID, ARBEITSAUFTRAG_KOPF_ID, PERSONAL_ID, WO_ID, LEISTUNGSART_ID, KOSTENART_ID, KOSTENSTELLE_ID,
    OBJEKT_ID, HAUSHALT_TITEL_ID, HAUSHALT_KAPITEL_ID) VALUES
(1, 1, 1, (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Harz' AND WO2 = N'05' AND WO3 = N'III' AND WO4 = N'100' AND WO5 = N'c' AND WO6 = N'1'),
    2, 5, 4, NULL, 3, 2),
(2, 1, 1, (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Harz' AND WO2 = N'05' AND WO3 = N'I' AND WO4 = N'87' AND WO5 = N'b' AND WO6 = N'1'),
    3, 5, 5, NULL, 3, 2),
(3, 2, 1, (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Rhön' AND WO2 = N'04' AND WO3 = N'Süd' AND WO4 = N'87' AND WO5 = N'c' AND WO6 = N'0'),
    4, 1, 1, NULL, 2, 2),
(4, 3, 1, NULL, 6, 4, 2, 2, 3, 2),
(5, 4, 2, (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Wörth' AND WO2 = N'01' AND WO3 = N'II' AND WO4 = N'7' AND WO5 = N'c' AND WO6 = N'0'),
    9, 7, 6, NULL, NULL, NULL)
GO

INSERT INTO ARBEITSAUFTRAG_KOPF_PLANN (ID, NAME, BESCHREIBUNG) VALUES
(1, N'Planung Jungbestandspflege 2025', NULL),
(2, N'Planung Wegebau 2025', N'Förderantrag ist gestellt.')
GO

INSERT INTO ARBEITSAUFTRAG_PLANN (ID, AA_PLANN_ID, WO_ID) VALUES
(1, 1, (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Taunus' AND WO2 = N'04' AND WO3 = N'Süd' AND WO4 = N'65' AND WO5 = N'a' AND WO6 = N'2')),
(2, 1, (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Taunus' AND WO2 = N'02' AND WO3 = N'Höhe' AND WO4 = N'35' AND WO5 = N'b' AND WO6 = N'0')),
(3, 2, NULL)
GO

INSERT INTO NATURALVOLLZUG_KLR (ID, ID_ARBEITSAUFTRAG, ID_BZT, ID_VM) VALUES
(1, 1, 1, 2),
(2, 3, 4, 6)
GO

INSERT INTO BELEGE (ID, NUMMER, AA_NUMMER, TITEL_ID, KAPITEL_ID, HULNR, ZAHLUNGSART, ZAHLUNGSGRUND) VALUES
(1, N'BE-1001', 1, 3, 2, 1, 1, 2),
(2, N'BE-1002', 3, 2, 2, 1, 1, 2)
GO

INSERT INTO LAGER (ID, NUMMER, PERSONAL_ID, TITEL_ID, KAPITEL_ID, HULNR, ZAHLUNGSART, ZAHLUNGSGRUND) VALUES
(1, N'LG-0001', 1, 3, 2, 2, 1, 2),
(2, N'LG-0002', 1, 3, 1, NULL, NULL, NULL)
GO

INSERT INTO PROJEKTE (ID, KURZTEXT, LANGTEXT) VALUES
(1, N'Waldumbau', N'Waldumbau Nadelreinbestände'),
(2, N'Wiederbewaldung', N'Wiederbewaldung nach Borkenkäfer'),
(3, N'Moorschutz', N'Wiedervernässung Spreewald')
GO

-- A stand that only a plan refers to: no check finds it, and still it cannot be deleted.
INSERT INTO [PLAN] (ID, KURZTEXT, LANGTEXT, ID_WALDORT) VALUES
(1, N'HP-2025', N'Hiebsplan 2025',
    (SELECT MIN(ID_WALDORT) FROM WALDORT WHERE WO1 = N'Eifel' AND WO2 = N'04' AND WO3 = N'Höhe' AND WO4 = N'81' AND WO5 = N'c' AND WO6 = N'1')),
(2, N'KP-2025', N'Kulturplan 2025', NULL)
GO

UPDATE WALDORT SET INFO1 = N'Rote Waldameise', INFO2 = N'Horstbaum, Schonzeit beachten', ZAHL1 = 12.5, ZAHL2 = 340
    WHERE WO1 = N'Eifel' AND WO2 = N'01' AND WO3 = N'IV' AND WO4 = N'19' AND WO5 = N'c' AND WO6 = N'0'
GO

UPDATE WALDORT SET INFO1 = N'Altholzinsel', INFO5 = N'kein Einschlag', ZAHL5 = 2024
    WHERE WO1 = N'Rhön' AND WO2 = N'03' AND WO3 = N'III' AND WO4 = N'60' AND WO5 = N'b' AND WO6 = N'1'
GO

INSERT INTO MODELS (NAME, RELATION, MODEL, ID_USER, NICHT_ANDERBAR, ID_ACCESS_LEVELS, STANDARD) VALUES
(N'Zahlungsziel 30 Tage', N'KONF_RECHZUSATZ', N'Zahlbar innerhalb von 30 Tagen ohne Abzug.', 1, 1, NULL, 1),
(N'Skonto', N'KONF_RECHZUSATZ', N'Bei Zahlung innerhalb von 14 Tagen 2 % Skonto.', 1, NULL, NULL, NULL),
(N'Abfuhrfrist Müritz', N'KONF_RECHZUSATZ', N'Die Abfuhr muss bis Ende März erfolgt sein.', 2, NULL, 1, 1),
(N'Eigener Text', N'KONF_RECHZUSATZ', N'Mit freundlichen Grüßen', 2, NULL, NULL, NULL),
(N'Alle Felder', N'CONFIG_EXPORTLV', N'1;2;3;4;5;6;7;8', 1, NULL, NULL, NULL),
(N'Kurz', N'CONFIG_EXPORTLV', N'1;3;5', 1, NULL, NULL, 1),
(N'Standardspalten', N'CONFIG_WAREN', N'1;1500;2;3000;3;900', 1, 1, NULL, 1)
GO

-- One deduction table is sixteen rows of one name, in the order of its lines.
INSERT INTO MODELS (NAME, RELATION, MODEL, ID_USER, NICHT_ANDERBAR, ID_ACCESS_LEVELS, STANDARD) VALUES
(N'Einschlag und Rücken', N'ABSCHLAG1', N'6;0;0;: :Harvestereinsatz;145,00;145;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'5;1;1;:Zaun:Wildschutzzaun;7,80;7,8;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;2;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;3;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;4;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;5;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;6;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;7;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;8;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;9;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;10;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;11;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;12;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;13;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;14;-1;: : ; ;;', 1, NULL, NULL, 1),
(N'Einschlag und Rücken', N'ABSCHLAG1', N'-1;15;-1;: : ; ;;', 1, NULL, NULL, 1)
GO

-- The first three characters are the list's group; a user may hold a list of a group that is no longer offered.
INSERT INTO BB_TSM_GESPERRTE_LISTEN (ID, LISTE, DISABLE) VALUES
(1, N'HV Holzverkaufsliste', NULL),
(2, N'HV Verkaufsstatistik', NULL),
(3, N'HE Holzeinschlag nach Revieren', NULL),
(4, N'BB Betriebsbuchführung', NULL),
(5, N'KW Kulturnachweis', NULL),
(6, N'HB Holzbestand', NULL),
(7, N'FA Forstamtsübersicht', NULL),
(8, N'JP Jagdpachtliste', NULL),
(9, N'KL Kostenleistungsrechnung', 1),
(10, N'XX Altliste', NULL)
GO

INSERT INTO BB_TSM_GESPERRTE_LISTEN_USERS (ID_USER, LISTE) VALUES
(1, N'HV Holzverkaufsliste'),
(1, N'HE Holzeinschlag nach Revieren'),
(1, N'KL Kostenleistungsrechnung'),
(1, N'XX Altliste'),
(2, N'HB Holzbestand')
GO

INSERT INTO BB_LEISTUNGS_KOPF (ID, NUMMER, ID_PERSONAL, DATUM) VALUES
(1, N'LN-2024-01', 30, '20240131'),
(2, N'LN-2024-02', 31, '20240229')
GO

INSERT INTO BB_LEISTUNGS_AUFSCHLAG (ID_BB_LEISTUNGS_KOPF, AUFSCHLAG, TAGE, DATUM_1TAG) VALUES
(1, 1, 3, '20240108'),
(1, 2, 5, '20240115'),
(1, 2, 0.5, '20240126')
GO

INSERT INTO BB_T_AUFTRAGS_PLANUNG (ID, AUFTRAGSNUMMER, SHORT, LONG, ID_ACCESS_LEVELS, DISABLE) VALUES
(1, N'2024-0001', N'Holzernte', N'Holzernte Müritz Winter', 1, NULL),
(2, N'2024-0002', N'Pflanzung', N'Pflanzung Spreewald Frühjahr', 4, NULL),
(3, N'2024-0003', N'Wegebau', N'Wegeunterhaltung', NULL, NULL)
GO

INSERT INTO BB_T_OBJEKTGRUPPE (ID, NUMMER, SHORT, LONG, MBF) VALUES
(1, 100, N'PKW', N'Dienstfahrzeuge', 1),
(2, 200, N'FORST', N'Forstmaschinen', 1),
(3, 300, N'GEB', N'Gebäude', 0)
GO

INSERT INTO BB_T_OBJEKTE (ID, ID_BB_T_OBJEKTGRUPPE, NUMMER, SHORT, LONG, ID_ACCESS_LEVELS) VALUES
(1, 1, 12, N'MSE-FA 12', N'Geländewagen Revier Birkenhain', 1),
(2, 1, 13, N'LDS-FA 3', N'Geländewagen Spreewald', 4),
(3, 2, 1, N'Harvester 1', N'Harvester, 8-Rad', NULL),
(4, 3, 7, N'Forsthof', N'Forsthof Röbel', NULL)
GO

INSERT INTO BB_T_JAGDBEZIRKE (ID, JAGDJAHR, NUMMER, LONG, ID_ACCESS_LEVELS) VALUES
(1, N'2023/2024', 101, N'Müritz Ost', 1),
(2, N'2024/2025', 101, N'Müritz Ost', 1),
(3, N'2024/2025', 102, N'Müritz West', 1),
(4, N'2024/2025', 201, N'Spreewald Nord', 4),
(5, N'2024/2025', 301, N'Rhön Süd', NULL)
GO
