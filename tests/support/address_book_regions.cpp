#include "support/address_book_regions.h"

#include <array>

namespace cardwright {

namespace {

constexpr LocalName kEnglishGiven[] = {{"Emma", "emma"},           {"Oliver", "oliver"},
                                       {"Charlotte", "charlotte"}, {"Noah", "noah"},
                                       {"Amelia", "amelia"},       {"George", "george"},
                                       {"Isla", "isla"},           {"Theodore", "theodore"}};
constexpr LocalName kEnglishFamily[] = {{"Ashworth", "ashworth"},       {"Fairbanks", "fairbanks"},
                                        {"Holloway", "holloway"},       {"Pemberton", "pemberton"},
                                        {"O'Donnell", "odonnell"},      {"Whitlock", "whitlock"},
                                        {"Smith-Jones", "smith-jones"}, {"Lyndhurst", "lyndhurst"}};
constexpr std::string_view kEnglishStreets[] = {"12 Orchard Lane", "7 Station Road, Flat 3",
                                                "221 Harbour View"};
constexpr LocalCity kEnglishCities[] = {{"Bristol", "BS1 4QA", "51.454514,-2.587910"},
                                        {"Leeds", "LS1 3AB", "53.800755,-1.549077"},
                                        {"Norwich", "NR2 1TF", "52.630886,1.297355"}};
constexpr std::string_view kEnglishCompanies[] = {"Northgate Instruments Ltd",
                                                  "Blue Heron Publishing", "Ashworth & Daughters"};
constexpr std::string_view kEnglishTitles[] = {"Head of Research", "Bookkeeper",
                                               "Ship's Carpenter"};
constexpr std::string_view kEnglishSentences[] = {
    "Met at the spring fair, wants the new catalogue.", "Prefers e-mail; never calls before ten.",
    "Allergic to nuts, likes long walks by the sea."};

constexpr LocalName kGermanGiven[] = {{"Jürgen", "juergen"},    {"Anneliese", "anneliese"},
                                      {"Björn", "bjoern"},      {"Käthe", "kaethe"},
                                      {"Matthias", "matthias"}, {"Lieselotte", "lieselotte"},
                                      {"Günther", "guenther"},  {"Sabine", "sabine"}};
constexpr LocalName kGermanFamily[] = {{"Müller-Lüdenscheidt", "mueller-luedenscheidt"},
                                       {"Weiß", "weiss"},
                                       {"Schönfeld", "schoenfeld"},
                                       {"Krähenbühl", "kraehenbuehl"},
                                       {"Bäumler", "baeumler"},
                                       {"Vogelsang", "vogelsang"},
                                       {"Großkopf", "grosskopf"},
                                       {"Hinterhuber", "hinterhuber"}};
constexpr std::string_view kGermanStreets[] = {"Lindenstraße 14", "Am Mühlenbach 3",
                                               "Königsallee 101, Hinterhaus"};
constexpr LocalCity kGermanCities[] = {{"Köln", "50667", "50.937531,6.960279"},
                                       {"Würzburg", "97070", "49.791304,9.953355"},
                                       {"Görlitz", "02826", "51.152670,14.987290"}};
constexpr std::string_view kGermanCompanies[] = {"Schönfeld Feinmechanik GmbH", "Bäckerei Großkopf",
                                                 "Verein für Stadtgeschichte e. V."};
constexpr std::string_view kGermanTitles[] = {"Geschäftsführerin", "Büroleiter", "Prüfingenieur"};
constexpr std::string_view kGermanSentences[] = {
    "Am besten nachmittags anrufen, nicht vor 14 Uhr.",
    "Schickt die Unterlagen bis Ende März; danach Urlaub.",
    "Kennt sich mit alten Straßenkarten aus."};

constexpr LocalName kFrenchGiven[] = {
    {"Élodie", "elodie"}, {"François", "francois"}, {"Zoé", "zoe"},     {"Jérôme", "jerome"},
    {"Maëlle", "maelle"}, {"Benoît", "benoit"},     {"Anaïs", "anais"}, {"Loïc", "loic"}};
constexpr LocalName kFrenchFamily[] = {
    {"Lefèvre", "lefevre"},         {"Château", "chateau"}, {"d'Arbanville", "darbanville"},
    {"Benoît-Lévy", "benoit-levy"}, {"Garçon", "garcon"},   {"Mérimont", "merimont"},
    {"Duchêne", "duchene"},         {"Forêt", "foret"}};
constexpr std::string_view kFrenchStreets[] = {"8, rue de l'Église", "15 bis, avenue des Tilleuls",
                                               "3, place du Marché"};
constexpr LocalCity kFrenchCities[] = {{"Besançon", "25000", "47.237829,6.024054"},
                                       {"Nîmes", "30000", "43.836699,4.360054"},
                                       {"Saint-Étienne", "42000", "45.439695,4.387178"}};
constexpr std::string_view kFrenchCompanies[] = {"Librairie du Château", "Atelier Lefèvre & Fils",
                                                 "Société des Eaux"};
constexpr std::string_view kFrenchTitles[] = {"Directrice générale", "Ingénieur d'études",
                                              "Maître de conférences"};
constexpr std::string_view kFrenchSentences[] = {
    "À rappeler après les vacances d'été.", "Préfère le thé au café, toujours.",
    "Son frère tient la librairie; voir aussi sa fiche."};

constexpr LocalName kSpanishGiven[] = {
    {"Begoña", "begona"},         {"Íñigo", "inigo"}, {"José María", "jose.maria"},
    {"Concepción", "concepcion"}, {"Raúl", "raul"},   {"Núria", "nuria"},
    {"Andrés", "andres"},         {"Lucía", "lucia"}};
constexpr LocalName kSpanishFamily[] = {{"Muñoz Ibáñez", "munoz"},  {"Peñalver", "penalver"},
                                        {"Domínguez", "dominguez"}, {"Güell", "guell"},
                                        {"Ordóñez", "ordonez"},     {"Zaragozano", "zaragozano"},
                                        {"Álamo", "alamo"},         {"Castañeda", "castaneda"}};
constexpr std::string_view kSpanishStreets[] = {"Calle del Olmo, 22, 3.º B",
                                                "Paseo de la Ribera, 5", "Avenida de España, 140"};
constexpr LocalCity kSpanishCities[] = {{"Logroño", "26001", "42.462719,-2.444985"},
                                        {"Cádiz", "11001", "36.527061,-6.288596"},
                                        {"A Coruña", "15001", "43.362344,-8.411540"}};
constexpr std::string_view kSpanishCompanies[] = {"Bodegas Peñalver, S. A.", "Imprenta Güell",
                                                  "Talleres del Norte"};
constexpr std::string_view kSpanishTitles[] = {"Directora de compras", "Médico de familia",
                                               "Traductor jurado"};
constexpr std::string_view kSpanishSentences[] = {"Llamar solo por la mañana.",
                                                  "¿Vendrá a la feria de otoño? Preguntar en mayo.",
                                                  "Trabaja los sábados; libra los lunes."};

constexpr LocalName kPolishGiven[] = {{"Łukasz", "lukasz"},     {"Małgorzata", "malgorzata"},
                                      {"Grażyna", "grazyna"},   {"Stanisław", "stanislaw"},
                                      {"Elżbieta", "elzbieta"}, {"Józef", "jozef"},
                                      {"Wiesława", "wieslawa"}, {"Błażej", "blazej"}};
constexpr LocalName kPolishFamily[] = {{"Brzęczyszczykiewicz", "brzeczyszczykiewicz"},
                                       {"Żółkiewska", "zolkiewska"},
                                       {"Dąbrowski", "dabrowski"},
                                       {"Świątek-Nowicka", "swiatek"},
                                       {"Gęś", "ges"},
                                       {"Wójtowicz", "wojtowicz"},
                                       {"Źrebiec", "zrebiec"},
                                       {"Kłos", "klos"}};
constexpr std::string_view kPolishStreets[] = {"ul. Źródlana 7/12", "al. Wyzwolenia 33",
                                               "pl. Kościelny 1"};
constexpr LocalCity kPolishCities[] = {{"Łódź", "90-001", "51.759248,19.455983"},
                                       {"Kraków", "31-008", "50.064651,19.944981"},
                                       {"Gdańsk", "80-831", "54.352024,18.646639"}};
constexpr std::string_view kPolishCompanies[] = {"Księgarnia pod Dębem", "Zakłady Dąbrowski i Syn",
                                                 "Spółdzielnia Łąka"};
constexpr std::string_view kPolishTitles[] = {"Główna księgowa", "Kierownik działu",
                                              "Nauczycielka"};
constexpr std::string_view kPolishSentences[] = {"Dzwonić po południu, najlepiej w środę.",
                                                 "Prosi o fakturę za wrzesień.",
                                                 "Zna się na pszczołach; ma własną pasiekę."};

constexpr LocalName kRussianGiven[] = {{"Екатерина", "ekaterina"}, {"Дмитрий", "dmitry"},
                                       {"Ольга", "olga"},          {"Святослав", "svyatoslav"},
                                       {"Людмила", "lyudmila"},    {"Пётр", "pyotr"},
                                       {"Ксения", "ksenia"},       {"Фёдор", "fyodor"}};
constexpr LocalName kRussianFamily[] = {{"Берёзкина", "beryozkina"},  {"Заречный", "zarechny"},
                                        {"Тихомиров", "tikhomirov"},  {"Журавлёва", "zhuravlyova"},
                                        {"Кудрявцев", "kudryavtsev"}, {"Щеглова", "shcheglova"},
                                        {"Ясенев", "yasenev"},        {"Полевой", "polevoy"}};
constexpr std::string_view kRussianStreets[] = {"ул. Садовая, д. 5, кв. 17", "Набережная, 2",
                                                "пр. Мира, 118"};
constexpr LocalCity kRussianCities[] = {{"Ярославль", "150000", "57.626559,39.893804"},
                                        {"Псков", "180000", "57.819274,28.332460"},
                                        {"Суздаль", "601293", "56.427494,40.441870"}};
constexpr std::string_view kRussianCompanies[] = {"Издательство «Берёза»", "Завод точных приборов",
                                                  "Кафе «У реки»"};
constexpr std::string_view kRussianTitles[] = {"Главный инженер", "Бухгалтер",
                                               "Заведующая отделом"};
constexpr std::string_view kRussianSentences[] = {"Звонить после шести вечера.",
                                                  "Обещал прислать чертежи, напомнить в июне.",
                                                  "Любит старые фотографии и крепкий чай."};

constexpr LocalName kGreekGiven[] = {{"Ελένη", "eleni"},       {"Γιώργος", "giorgos"},
                                     {"Δήμητρα", "dimitra"},   {"Κωνσταντίνος", "konstantinos"},
                                     {"Σοφία", "sofia"},       {"Ηλίας", "ilias"},
                                     {"Αγγελική", "angeliki"}, {"Θανάσης", "thanasis"}};
constexpr LocalName kGreekFamily[] = {{"Παπαδημητρίου", "papadimitriou"},
                                      {"Αμπελάς", "ampelas"},
                                      {"Θαλασσινός", "thalassinos"},
                                      {"Καραγιώργη", "karagiorgi"},
                                      {"Ξενάκη", "xenaki"},
                                      {"Ψαρουδάκης", "psaroudakis"},
                                      {"Χρυσός", "chrysos"},
                                      {"Ωραιόπουλος", "oraiopoulos"}};
constexpr std::string_view kGreekStreets[] = {"Οδός Ερμού 14", "Λεωφόρος Αθηνών 203",
                                              "Πλατεία Ελευθερίας 6"};
constexpr LocalCity kGreekCities[] = {{"Θεσσαλονίκη", "546 24", "40.640063,22.944419"},
                                      {"Ηράκλειο", "712 02", "35.338735,25.144213"},
                                      {"Βόλος", "382 21", "39.362190,22.942159"}};
constexpr std::string_view kGreekCompanies[] = {"Εκδόσεις Αμπελάς", "Ναυτιλιακή Θαλασσινός Α.Ε.",
                                                "Φούρνος της γειτονιάς"};
constexpr std::string_view kGreekTitles[] = {"Διευθύντρια", "Μηχανικός", "Δικηγόρος"};
constexpr std::string_view kGreekSentences[] = {"Να τον πάρω τηλέφωνο το απόγευμα.",
                                                "Θέλει τον νέο κατάλογο, όχι τον παλιό.",
                                                "Γνωριστήκαμε στο πλοίο για την Κρήτη."};

constexpr LocalName kChineseGiven[] = {
    {"雨桐", "yutong"},  {"浩然", "haoran"},   {"梓涵", "zihan"},  {"建国", "jianguo"},
    {"秀英", "xiuying"}, {"志强", "zhiqiang"}, {"思远", "siyuan"}, {"晓燕", "xiaoyan"}};
constexpr LocalName kChineseFamily[] = {{"欧阳", "ouyang"}, {"林", "lin"}, {"诸葛", "zhuge"},
                                        {"谢", "xie"},      {"韩", "han"}, {"上官", "shangguan"},
                                        {"沈", "shen"},     {"白", "bai"}};
constexpr std::string_view kChineseStreets[] = {"中山路88号3单元502室", "湖滨街道15号",
                                                "解放大道1206号"};
constexpr LocalCity kChineseCities[] = {{"杭州", "310000", "30.274085,120.155070"},
                                        {"成都", "610000", "30.572815,104.066801"},
                                        {"青岛", "266000", "36.067108,120.382609"}};
constexpr std::string_view kChineseCompanies[] = {"青山精密仪器有限公司", "湖畔书店",
                                                  "东方物流集团"};
constexpr std::string_view kChineseTitles[] = {"研发部经理", "会计", "高级工程师"};
constexpr std::string_view kChineseSentences[] = {
    "下午三点以后方便接电话。", "喜欢喝龙井茶，不喝咖啡。", "合同已经寄出，下周再确认。"};

constexpr LocalName kJapaneseGiven[] = {
    {"さくら", "sakura"}, {"健太", "kenta"},   {"美咲", "misaki"}, {"大輔", "daisuke"},
    {"ユウキ", "yuuki"},  {"千尋", "chihiro"}, {"一郎", "ichiro"}, {"桃子", "momoko"}};
constexpr LocalName kJapaneseFamily[] = {{"青木", "aoki"},        {"長谷川", "hasegawa"},
                                         {"小笠原", "ogasawara"}, {"西園寺", "saionji"},
                                         {"渡辺", "watanabe"},    {"五十嵐", "igarashi"},
                                         {"東雲", "shinonome"},   {"勅使河原", "teshigawara"}};
constexpr std::string_view kJapaneseStreets[] = {"桜木町1丁目2番地の3", "本町4-15-8 青葉ビル3階",
                                                 "緑が丘2-7-1"};
constexpr LocalCity kJapaneseCities[] = {{"金沢市", "920-0961", "36.561325,136.656205"},
                                         {"札幌市", "060-0001", "43.062096,141.354376"},
                                         {"長崎市", "850-0033", "32.750286,129.877667"}};
constexpr std::string_view kJapaneseCompanies[] = {"株式会社青木製作所", "喫茶ひまわり",
                                                   "西園寺法律事務所"};
constexpr std::string_view kJapaneseTitles[] = {"営業部長", "主任研究員", "店長"};
constexpr std::string_view kJapaneseSentences[] = {"打ち合わせは金曜日の午後に。",
                                                   "コーヒーよりお茶が好きだそうです。",
                                                   "来月、札幌に引っ越します。"};

constexpr LocalName kKoreanGiven[] = {
    {"민서", "minseo"}, {"지훈", "jihoon"},    {"하은", "haeun"},   {"동현", "donghyun"},
    {"수빈", "subin"},  {"영숙", "youngsook"}, {"태양", "taeyang"}, {"은지", "eunji"}};
constexpr LocalName kKoreanFamily[] = {{"김", "kim"},      {"남궁", "namgung"}, {"황보", "hwangbo"},
                                       {"최", "choi"},     {"제갈", "jegal"},   {"백", "baek"},
                                       {"선우", "sunwoo"}, {"윤", "yoon"}};
constexpr std::string_view kKoreanStreets[] = {"한강로 25, 101동 1203호", "은행나무길 7",
                                               "중앙대로 330"};
constexpr LocalCity kKoreanCities[] = {{"부산", "48058", "35.179554,129.075642"},
                                       {"전주", "54999", "35.824224,127.147953"},
                                       {"강릉", "25500", "37.751853,128.876057"}};
constexpr std::string_view kKoreanCompanies[] = {"한빛정밀 주식회사", "바다서점",
                                                 "남궁건축사사무소"};
constexpr std::string_view kKoreanTitles[] = {"연구소장", "회계 담당", "수석 디자이너"};
constexpr std::string_view kKoreanSentences[] = {"오후 두 시 이후에 전화 주세요.",
                                                 "다음 주까지 견적서를 보내기로 함.",
                                                 "등산을 좋아하고 채식을 한다."};

constexpr LocalName kArabicGiven[] = {{"ليلى", "layla"},   {"عبد الرحمن", "abdulrahman"},
                                      {"فاطمة", "fatima"}, {"يوسف", "yousef"},
                                      {"مريم", "maryam"},  {"خالد", "khaled"},
                                      {"نور", "nour"},     {"إبراهيم", "ibrahim"}};
constexpr LocalName kArabicFamily[] = {{"الحدّاد", "alhaddad"}, {"النجّار", "alnajjar"},
                                       {"القاضي", "alqadi"},   {"البستاني", "albustani"},
                                       {"الصيّاد", "alsayyad"}, {"المصري", "almasri"},
                                       {"العطّار", "alattar"},  {"الخيّاط", "alkhayyat"}};
constexpr std::string_view kArabicStreets[] = {"شارع النخيل، بناية ٧", "ساحة الزيتون ١٢",
                                               "طريق البحر ٤٥"};
constexpr LocalCity kArabicCities[] = {{"الإسكندرية", "21500", "31.200092,29.918739"},
                                       {"أسوان", "81511", "24.088938,32.899829"},
                                       {"المنصورة", "35511", "31.040948,31.378470"}};
constexpr std::string_view kArabicCompanies[] = {"مكتبة النخيل", "شركة الصيّاد للنقل", "مخبز الحيّ"};
constexpr std::string_view kArabicTitles[] = {"مديرة المشروع", "محاسب", "مهندس معماري"};
constexpr std::string_view kArabicSentences[] = {
    "يفضّل الاتصال بعد الظهر.", "سترسل الكتاب الأسبوع القادم، إن شاء الله.", "يحبّ القهوة بالهال."};

constexpr LocalName kHebrewGiven[] = {
    {"נועה", "noa"},   {"איתי", "itai"},     {"תמר", "tamar"}, {"אליעזר", "eliezer"},
    {"שירה", "shira"}, {"יונתן", "yonatan"}, {"רות", "ruth"},  {"דניאל", "daniel"}};
constexpr LocalName kHebrewFamily[] = {
    {"בן־דוד", "ben-david"}, {"אלון", "alon"}, {"שושני", "shoshani"}, {"כרמל", "carmel"},
    {"גולן", "golan"},       {"ארז", "erez"},  {"הדס", "hadas"},      {"ים־סוף", "yam-suf"}};
constexpr std::string_view kHebrewStreets[] = {"רחוב הגפן 9, דירה 4", "שדרות האורנים 51",
                                               "סמטת הדקל 2"};
constexpr LocalCity kHebrewCities[] = {{"חיפה", "3303201", "32.794046,34.989571"},
                                       {"באר שבע", "8410501", "31.252973,34.791462"},
                                       {"טבריה", "1410001", "32.795859,35.530973"}};
constexpr std::string_view kHebrewCompanies[] = {"הוצאת ארז", "מאפיית הגפן", "כרמל מכשירים בע״מ"};
constexpr std::string_view kHebrewTitles[] = {"מנהלת מחקר", "רואה חשבון", "מהנדס ראשי"};
constexpr std::string_view kHebrewSentences[] = {
    "להתקשר רק אחרי ארבע.", "מעדיפה דואר אלקטרוני, לא טלפון.", "נפגשנו בכנס בחיפה."};

constexpr LocalName kHindiGiven[] = {
    {"प्रिया", "priya"},  {"विक्रम", "vikram"},    {"लक्ष्मी", "lakshmi"}, {"अर्जुन", "arjun"},
    {"सुनीता", "sunita"}, {"राजेन्द्र", "rajendra"}, {"कृष्णा", "krishna"},  {"मीनाक्षी", "meenakshi"}};
constexpr LocalName kHindiFamily[] = {{"श्रीवास्तव", "shrivastava"}, {"चतुर्वेदी", "chaturvedi"},
                                      {"वर्मा", "verma"},           {"त्रिपाठी", "tripathi"},
                                      {"जोशी", "joshi"},           {"कुलश्रेष्ठ", "kulshreshtha"},
                                      {"मिश्रा", "mishra"},         {"राठौड़", "rathore"}};
constexpr std::string_view kHindiStreets[] = {"१४, गांधी मार्ग", "फ्लैट ३०२, कमल अपार्टमेंट",
                                              "७, स्टेशन रोड"};
constexpr LocalCity kHindiCities[] = {{"वाराणसी", "221001", "25.317645,82.973914"},
                                      {"जयपुर", "302001", "26.912434,75.787270"},
                                      {"उज्जैन", "456001", "23.179301,75.784912"}};
constexpr std::string_view kHindiCompanies[] = {"श्रीवास्तव पुस्तक भण्डार", "कमल वस्त्रालय",
                                                "हिमालय यन्त्र प्राइवेट लिमिटेड"};
constexpr std::string_view kHindiTitles[] = {"मुख्य अभियन्ता", "लेखाकार", "प्राध्यापिका"};
constexpr std::string_view kHindiSentences[] = {
    "शाम को छह बजे के बाद फ़ोन करें।", "अगले हफ़्ते किताबें भेजेंगे, याद दिलाना।", "चाय पसन्द है, कॉफ़ी नहीं।"};

constexpr LocalName kVietnameseGiven[] = {{"Thị Hồng Nhung", "nhung"}, {"Quốc Bảo", "bao"},
                                          {"Thùy Dương", "duong"},     {"Văn Đức", "duc"},
                                          {"Ngọc Ánh", "anh"},         {"Hữu Phước", "phuoc"},
                                          {"Mỹ Linh", "linh"},         {"Trường Giang", "giang"}};
constexpr LocalName kVietnameseFamily[] = {{"Nguyễn", "nguyen"}, {"Trần", "tran"}, {"Đặng", "dang"},
                                           {"Huỳnh", "huynh"},   {"Bùi", "bui"},   {"Vũ", "vu"},
                                           {"Lý", "ly"},         {"Đỗ", "do"}};
constexpr std::string_view kVietnameseStreets[] = {"Số 12, ngõ 45, phố Huế", "88 đường Lê Lợi",
                                                   "27 đường Trần Phú, tầng 4"};
constexpr LocalCity kVietnameseCities[] = {{"Đà Nẵng", "550000", "16.054407,108.202164"},
                                           {"Cần Thơ", "900000", "10.045162,105.746857"},
                                           {"Huế", "530000", "16.463713,107.590866"}};
constexpr std::string_view kVietnameseCompanies[] = {"Công ty Cổ phần Sông Hương",
                                                     "Nhà sách Bình Minh", "Quán Phở Đặng"};
constexpr std::string_view kVietnameseTitles[] = {"Trưởng phòng kỹ thuật", "Kế toán trưởng",
                                                  "Giáo viên"};
constexpr std::string_view kVietnameseSentences[] = {"Gọi sau năm giờ chiều.",
                                                     "Thích cà phê sữa đá, không uống trà.",
                                                     "Sẽ gửi hợp đồng vào tuần tới."};

constexpr std::array<Region, 14> kRegions = {{
    {kEnglishGiven, kEnglishFamily, kEnglishStreets, kEnglishCities, kEnglishCompanies,
     kEnglishTitles, kEnglishSentences, "United Kingdom", "gb", "en", "+44", "+00:00",
     "Europe/London", false},
    {kGermanGiven, kGermanFamily, kGermanStreets, kGermanCities, kGermanCompanies, kGermanTitles,
     kGermanSentences, "Deutschland", "de", "de", "+49", "+01:00", "Europe/Berlin", false},
    {kFrenchGiven, kFrenchFamily, kFrenchStreets, kFrenchCities, kFrenchCompanies, kFrenchTitles,
     kFrenchSentences, "France", "fr", "fr", "+33", "+01:00", "Europe/Paris", false},
    {kSpanishGiven, kSpanishFamily, kSpanishStreets, kSpanishCities, kSpanishCompanies,
     kSpanishTitles, kSpanishSentences, "España", "es", "es", "+34", "+01:00", "Europe/Madrid",
     false},
    {kPolishGiven, kPolishFamily, kPolishStreets, kPolishCities, kPolishCompanies, kPolishTitles,
     kPolishSentences, "Polska", "pl", "pl", "+48", "+01:00", "Europe/Warsaw", false},
    {kRussianGiven, kRussianFamily, kRussianStreets, kRussianCities, kRussianCompanies,
     kRussianTitles, kRussianSentences, "Россия", "ru", "ru", "+7", "+03:00", "Europe/Moscow",
     false},
    {kGreekGiven, kGreekFamily, kGreekStreets, kGreekCities, kGreekCompanies, kGreekTitles,
     kGreekSentences, "Ελλάδα", "gr", "el", "+30", "+02:00", "Europe/Athens", false},
    {kChineseGiven, kChineseFamily, kChineseStreets, kChineseCities, kChineseCompanies,
     kChineseTitles, kChineseSentences, "中国", "cn", "zh", "+86", "+08:00", "Asia/Shanghai", true},
    {kJapaneseGiven, kJapaneseFamily, kJapaneseStreets, kJapaneseCities, kJapaneseCompanies,
     kJapaneseTitles, kJapaneseSentences, "日本", "jp", "ja", "+81", "+09:00", "Asia/Tokyo", true},
    {kKoreanGiven, kKoreanFamily, kKoreanStreets, kKoreanCities, kKoreanCompanies, kKoreanTitles,
     kKoreanSentences, "대한민국", "kr", "ko", "+82", "+09:00", "Asia/Seoul", true},
    {kArabicGiven, kArabicFamily, kArabicStreets, kArabicCities, kArabicCompanies, kArabicTitles,
     kArabicSentences, "مصر", "eg", "ar", "+20", "+02:00", "Africa/Cairo", false},
    {kHebrewGiven, kHebrewFamily, kHebrewStreets, kHebrewCities, kHebrewCompanies, kHebrewTitles,
     kHebrewSentences, "ישראל", "il", "he", "+972", "+02:00", "Asia/Jerusalem", false},
    {kHindiGiven, kHindiFamily, kHindiStreets, kHindiCities, kHindiCompanies, kHindiTitles,
     kHindiSentences, "भारत", "in", "hi", "+91", "+05:30", "Asia/Kolkata", false},
    {kVietnameseGiven, kVietnameseFamily, kVietnameseStreets, kVietnameseCities,
     kVietnameseCompanies, kVietnameseTitles, kVietnameseSentences, "Việt Nam", "vn", "vi", "+84",
     "+07:00", "Asia/Ho_Chi_Minh", true},
}};

} // namespace

std::span<const Region> regions() noexcept {
  return kRegions;
}

} // namespace cardwright
