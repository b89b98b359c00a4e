<?xml version="1.0" encoding="UTF-8"?>
<!-- Makes the pages behind HTMLヘルプ and the help button out of docs/guide/guide.xml and the message catalogue:
     index.html, the guide with all messages in the place of its instruction "messages", and beside it
     index<code>.html for each message, which says what the message means and leads to the chapter that names its code
     in an instruction "about".
     Parameters: "catalogue", the path of LogMessage.xml; "words", the path of the words for its placeholders.
     The pages are named by code, as a fragment behind "#" does not come past every desktop's opener. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"
                xmlns:exsl="http://exslt.org/common" extension-element-prefixes="exsl">
  <xsl:output method="html" doctype-system="about:legacy-compat" encoding="UTF-8" indent="yes"/>
  <xsl:param name="catalogue"/>
  <xsl:param name="words"/>

  <!-- Trace lines are for who mends the program; a host never meets them in a box. -->
  <xsl:variable name="messages" select="document($catalogue)/doc/log/message[logging &gt;= 2]"/>
  <xsl:variable name="guide" select="/html"/>

  <xsl:template match="/">
    <xsl:apply-templates/>
    <xsl:for-each select="$messages">
      <exsl:document href="index{@code}.html" method="html" doctype-system="about:legacy-compat" encoding="UTF-8" indent="yes">
        <xsl:call-template name="page"/>
      </exsl:document>
    </xsl:for-each>
  </xsl:template>

  <xsl:template match="@*|node()">
    <xsl:copy><xsl:apply-templates select="@*|node()"/></xsl:copy>
  </xsl:template>
  <xsl:template match="comment()|processing-instruction('about')"/>

  <!-- Japanese has no blanks between words: a line of the source goes on where the one before ended. -->
  <xsl:template match="text()"><xsl:call-template name="joined"/></xsl:template>
  <xsl:template name="joined">
    <xsl:param name="text" select="."/>
    <xsl:choose>
      <xsl:when test="contains($text, '&#10;')">
        <xsl:variable name="rest" select="substring-after($text, '&#10;')"/>
        <xsl:variable name="first" select="substring(normalize-space($rest), 1, 1)"/>
        <xsl:value-of select="substring-before($text, '&#10;')"/>
        <xsl:if test="$first">
          <xsl:call-template name="joined">
            <xsl:with-param name="text" select="concat($first, substring-after($rest, $first))"/>
          </xsl:call-template>
        </xsl:if>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$text"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="processing-instruction('messages')">
    <table class="messages">
      <thead><tr><th>コード</th><th>メッセージ</th><th>意味と対処</th></tr></thead>
      <tbody>
        <xsl:for-each select="$messages">
          <xsl:sort select="@code" data-type="number" order="descending"/>
          <tr id="C{@code}">
            <td><a href="index{@code}.html">C<xsl:value-of select="@code"/></a></td>
            <td><xsl:apply-templates select="contents" mode="readable"/></td>
            <td><xsl:apply-templates select="restore" mode="readable"/></td>
          </tr>
        </xsl:for-each>
      </tbody>
    </table>
  </xsl:template>

  <!-- The page of the message that is the current node. -->
  <xsl:template name="page">
    <xsl:variable name="named" select="$guide//processing-instruction('about')
                                       [contains(concat(' ', ., ' '), concat(' ', current()/@code, ' '))]"/>
    <xsl:variable name="chapter" select="$named/preceding::h2[1] | $guide//h2[@id = 'trouble' and not($named)]"/>
    <html lang="ja">
      <head>
        <xsl:copy-of select="$guide/head/meta | $guide/head/link"/>
        <title>C<xsl:value-of select="@code"/>：<xsl:value-of select="$guide/head/title"/></title>
      </head>
      <body>
        <p class="way"><a href="index.html"><xsl:value-of select="$guide/head/title"/></a></p>
        <h1>C<xsl:value-of select="@code"/></h1>
        <p class="said level{logging}"><xsl:apply-templates select="contents" mode="readable"/></p>
        <p class="level">
          <xsl:choose>
            <xsl:when test="logging = 2">お知らせまたは確認です。</xsl:when>
            <xsl:when test="logging = 3">注意です。</xsl:when>
            <xsl:otherwise>エラーです。</xsl:otherwise>
          </xsl:choose>
          <xsl:if test="contains(contents, '%') or contains(restore, '%')">
            <xsl:text>〔　〕の所には、そのときの値が入ります。</xsl:text>
          </xsl:if>
        </p>
        <h2>意味と対処</h2>
        <p class="restore"><xsl:apply-templates select="restore" mode="readable"/></p>
        <p>詳しくは、ガイドの「<a href="index.html#{$chapter/@id}"><xsl:value-of select="$chapter"/></a>」にあります。</p>
        <p class="way"><a href="index.html">ガイドの目次</a>　<a href="index.html#messages">メッセージの一覧</a></p>
      </body>
    </html>
  </xsl:template>

  <!-- The text as a host reads it: the status bar's two parts beside each other, a word in the place of a %KEY%. -->
  <xsl:template match="contents|restore" mode="readable">
    <xsl:call-template name="readable"><xsl:with-param name="text" select="translate(., '|', '　')"/></xsl:call-template>
  </xsl:template>
  <xsl:template name="readable">
    <xsl:param name="text"/>
    <xsl:variable name="rest" select="substring-after($text, '%')"/>
    <xsl:variable name="key" select="substring-before($rest, '%')"/>
    <xsl:choose>
      <xsl:when test="$key">
        <xsl:variable name="word" select="document($words)/words/word[@key = $key]"/>
        <xsl:value-of select="concat(substring-before($text, '%'), '〔')"/>
        <xsl:choose>
          <xsl:when test="$word"><xsl:value-of select="$word"/></xsl:when>
          <xsl:otherwise>…</xsl:otherwise>
        </xsl:choose>
        <xsl:text>〕</xsl:text>
        <xsl:call-template name="readable"><xsl:with-param name="text" select="substring-after($rest, '%')"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$text"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>
</xsl:stylesheet>
